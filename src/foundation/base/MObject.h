#pragma once

/// Root of every polymorphic class: nothing but a virtual destructor.
class MObject {
public:
    MObject() = default;
    MObject(const MObject&) = default;
    MObject& operator=(const MObject&) = default;
    virtual ~MObject() noexcept(false) = default;
};
