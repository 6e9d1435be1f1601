#pragma once

#include "host/geokit/brep.h"

/// The toolkit's brep; all is as for the kernel's.
class VX_Brep : public GK_Brep
{
public:
    /// Return the object as a brep of the toolkit, or null when it is none.
    static VX_Brep* Cast(GK_Object* object) { return dynamic_cast<VX_Brep*>(object); }
    static const VX_Brep* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_Brep*>(object);
    }
};
