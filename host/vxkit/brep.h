#pragma once

#include "host/geokit/brep.h"

/// The toolkit's brep.
class VX_Brep : public GK_Brep
{
public:
    static VX_Brep* Cast(GK_Object* object) { return dynamic_cast<VX_Brep*>(object); }
    static const VX_Brep* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_Brep*>(object);
    }
};
