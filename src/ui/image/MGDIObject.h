#pragma once

#include "foundation/base/MObject.h"

#include <cstdint>

/// Owns a drawing object of the operating system and deletes it at the end: of GDI on Windows, a segment of
/// shared memory on Linux. Each platform has its own form of handle, in a number of a pointer's size.
class MGDIObject : public MObject {
public:
    MGDIObject(const MGDIObject&) = delete;
    MGDIObject& operator=(const MGDIObject&) = delete;
    ~MGDIObject() override = default;

    [[nodiscard]] intptr_t GetHandle() const { return handle; }

protected:
    MGDIObject() = default;

    intptr_t handle = 0;
};
