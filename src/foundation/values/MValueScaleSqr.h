#pragma once

#include "foundation/values/MValue.h"

/// Another value on a quadratic scale: a knob on it moves more finely at the low end. All but the normalised
/// position is the other value's. The other value is not owned and must live as long as this one is used.
class MValueScaleSqr final : public MValue {
public:
    explicit MValueScaleSqr(MValue& inner) : inner(&inner) {}

    [[nodiscard]] const MString& GetId() const override { return inner->GetId(); }
    void SetId(const MString& newId) override { inner->SetId(newId); }
    [[nodiscard]] MString ToStorageText() const override { return inner->ToStorageText(); }
    void FromStorageText(const MString& text) override { inner->FromStorageText(text); }
    void ResetToDefault() override { inner->ResetToDefault(); }
    bool Save(MXMLItem& item) const override { return inner->Save(item); }
    void Load(MXMLItem& item) override { inner->Load(item); }
    void LoadDefinition(MXMLItem& item) override { inner->LoadDefinition(item); }
    [[nodiscard]] const MCharFilter::Interface& GetCharFilter() const override {
        return inner->GetCharFilter();
    }
    [[nodiscard]] MString GetText() const override { return inner->GetText(); }
    [[nodiscard]] MString GetTextAt(double position) override {
        return inner->GetTextAt(position * position);
    }
    [[nodiscard]] MString GetDisplayText() const override { return inner->GetDisplayText(); }
    bool SetText(const MString& text) override { return inner->SetText(text); }
    bool SetFromDisplayText(const MString& text) override { return inner->SetFromDisplayText(text); }
    /// The hooks are called with the other value.
    void SetTextHooks(TextGetter newGetter, TextSetter newSetter) override {
        inner->SetTextHooks(newGetter, newSetter);
    }
    void OnRangeChange() override { inner->OnRangeChange(); }
    void Validate() override { inner->Validate(); }
    bool Step(int32_t count, bool isFine) override { return inner->Step(count, isFine); }
    bool StepBy(int32_t count) override { return inner->StepBy(count); }
    /// The square root of the other value's.
    [[nodiscard]] double GetNormalized() const override;
    /// Gives the other value the square.
    void SetNormalized(double position) override;
    [[nodiscard]] int32_t GetDiscreteCount() const override { return inner->GetDiscreteCount(); }
    void SetDiscreteIndex(int32_t index) override { inner->SetDiscreteIndex(index); }
    [[nodiscard]] int32_t GetDiscreteIndex() const override { return inner->GetDiscreteIndex(); }

private:
    MValue* inner;
};
