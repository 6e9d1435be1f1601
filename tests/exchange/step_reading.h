#pragma once

#include "console_host/app/document.h"
#include "objimport/exchange/exchange.h"

#include <string>
#include <vector>

/// A part of a STEP file's assembly as the geometry library reads it.
struct StepPart
{
    std::string name;
    std::string layer; ///< empty: none
    std::string color; ///< "255 128 0"; empty: none
    int shells = 0;
    int faces = 0;
    int edges = 0;    ///< those of faces as often as they are used
    int vertices = 0; ///< those of no edge
    double area = 0.0;
    double length = 0.0; ///< of the edges of no face
    bool isValid = false;
};

struct StepReading
{
    std::string name; ///< of the assembly
    std::vector<StepPart> parts;
};

/// Returns what a STEP file holds. Throws std::runtime_error when it cannot be read.
StepReading ReadStep(const std::string& text);

/// A document as it is written, and the outcome.
struct StepWriting
{
    ExchangeOutcome outcome;
    std::string text;
};

StepWriting WriteStepOf(const ConsoleDoc& doc);
