#pragma once

struct ObjReading;
struct SurfaceData;

// The handlers of statements. Each reads the tokens of the current line, of which the first is the
// keyword, and adds what they say to the file's data. False: the statement is so wrong that reading
// ends with it; a face, though, is only told, and a library without a name ignored.

bool ReadVertex(ObjReading& reading);
bool ReadParamVertex(ObjReading& reading);
bool ReadTexCoord(ObjReading& reading);
bool ReadNormal(ObjReading& reading);

bool ReadFace(ObjReading& reading);
bool ReadPoint(ObjReading& reading);

bool ReadGroupName(ObjReading& reading);
bool ReadObjectName(ObjReading& reading);
bool ReadMaterialUse(ObjReading& reading);
bool ReadMaterialLibrary(ObjReading& reading);

bool ReadCSType(ObjReading& reading);
bool ReadDegree(ObjReading& reading);
bool ReadCurve(ObjReading& reading, bool bParameterSpace);
bool ReadSurface(ObjReading& reading);
bool ReadParm(ObjReading& reading);
bool ReadCurveParm(ObjReading& reading);
bool ReadSurfaceParm(ObjReading& reading);
bool ReadTrimLoop(ObjReading& reading);

// What the handlers share.

/// Returns the degree and one, kept within 32 bits.
int OrderOf(int degree);

/// Returns the current group's last surface when it is the free-form element begun last, otherwise
/// null.
SurfaceData* CurrentSurface(ObjReading& reading);

/// Puts the words after the keyword into the scratch name, joined with single spaces. False when
/// there are none.
bool JoinName(ObjReading& reading);
