#pragma once

/// The root of everything that the kernel and the host keep by pointer. Who owns an object destroys
/// it through this class.
class GK_Object
{
public:
    GK_Object() = default;
    GK_Object(const GK_Object&) = default;
    GK_Object(GK_Object&&) = default;
    GK_Object& operator=(const GK_Object&) = default;
    GK_Object& operator=(GK_Object&&) = default;
    virtual ~GK_Object() = default;
};

/// What can be in a document as the geometry of an object.
class GK_Geometry : public GK_Object
{
};
