#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

/// What a module needs of a plug-in file that has been loaded into its process.
class MPluginLibrary : public MObject {
public:
    /// The exported function of that name, or null.
    [[nodiscard]] virtual void* FindFunction(const MString& name) = 0;
    /// What the library's own initialisation returned.
    void* initialization = nullptr;
};
