#pragma once

/// What controls have between themselves and their base, for those that are made from presets.
template <class Base>
class MPresetBaseT : public Base {
public:
    MPresetBaseT() = default;
    ~MPresetBaseT() override = default;
};
