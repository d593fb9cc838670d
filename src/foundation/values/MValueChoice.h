#pragma once

#include "foundation/values/MValue.h"

/// A value that is one of a list of names. It works by the index of the name: coarse and fine steps move by
/// one name, and no further than to the ends. The text form, also for storage, is the name.
class MValueChoice : public MValue {
public:
    void ResetToDefault() override;
    void SetDefaultIndex(int32_t index) { defaultIndex = index; }
    [[nodiscard]] MString GetTextAt(double position) override;
    [[nodiscard]] MString GetDisplayText() const override;
    /// Names are compared ignoring case, the first of equal ones counting. A text that is no name, the empty
    /// one too, chooses the first name.
    bool SetFromDisplayText(const MString& text) override;
    void Validate() override;
    /// As well "default" and "value", names.
    void LoadDefinition(MXMLItem& item) override;
    bool Step(int32_t count, bool isFine) override;
    bool StepBy(int32_t count) override;
    [[nodiscard]] double GetNormalized() const override;
    void SetNormalized(double position) override;
    [[nodiscard]] int32_t GetDiscreteCount() const override { return GetNameCount(); }
    /// The nearest index that there is.
    void SetDiscreteIndex(int32_t index) override;
    [[nodiscard]] int32_t GetDiscreteIndex() const override;

protected:
    using MValue::MValue;

    [[nodiscard]] virtual int32_t GetNameCount() const = 0;
    [[nodiscard]] virtual MString GetName(int32_t index) const = 0;
    /// What is stored, which for an outside variable may be any number.
    [[nodiscard]] virtual int32_t GetStoredIndex() const = 0;
    virtual void StoreIndex(int32_t index) = 0;

private:
    bool MoveTo(int64_t index);

    int32_t defaultIndex = 0;
};
