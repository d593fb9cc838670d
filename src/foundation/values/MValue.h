#pragma once

#include "foundation/text/MCharFilter.h"
#include "foundation/values/MStorable.h"

#include <cstdint>

/// A typed setting with a range, a text for storage and a text for the user. Controls bind to it: they draw
/// its normalised position and send it steps, positions and typed text. A value does not know its controls.
///
/// Values raise nothing of their own: text that is none of theirs leaves them as they are. A value belongs
/// to one thread.
class MValue : public MStorable {
public:
    /// Functions that stand in for the text forms of a value.
    using TextGetter = MString (*)(const MValue& value);
    using TextSetter = void (*)(MValue& value, const MString& text);

    using MStorable::MStorable;

    /// The text for the user, unless a class has a form of its own.
    [[nodiscard]] MString ToStorageText() const override;
    void FromStorageText(const MString& text) override;
    void Load(MXMLItem& item) override;
    /// Takes what an item says about the value itself: here the attribute "id", if it is there.
    virtual void LoadDefinition(MXMLItem& item);

    /// Which characters may be typed for the value.
    [[nodiscard]] virtual const MCharFilter::Interface& GetCharFilter() const;
    /// The text for the user: the hook's, or else `GetDisplayText`.
    [[nodiscard]] virtual MString GetText() const;
    /// The text that the value would have at a position of its range.
    [[nodiscard]] virtual MString GetTextAt(double position) = 0;
    /// The text with unit.
    [[nodiscard]] virtual MString GetDisplayText() const = 0;
    /// Takes a text of the user, through the hook if there is one, and validates. Returns true if the value
    /// changed or the hook was called.
    virtual bool SetText(const MString& text);
    /// Takes a text with or without unit and validates. Returns true if the value changed.
    virtual bool SetFromDisplayText(const MString& text) = 0;
    /// Either hook may be null: then the class's own text counts.
    virtual void SetTextHooks(TextGetter newGetter, TextSetter newSetter);

    /// Called after the limits changed.
    virtual void OnRangeChange();
    /// Brings the value into its range.
    virtual void Validate() = 0;

    /// Moves by `count` coarse or fine steps, back for a negative count. Returns true if the value changed.
    virtual bool Step(int32_t count, bool isFine) = 0;
    /// Adds `count` times the coarse step. Returns true if the value changed.
    virtual bool StepBy(int32_t count) = 0;

    /// The position in the range, from 0 to 1.
    [[nodiscard]] virtual double GetNormalized() const = 0;
    virtual void SetNormalized(double position) = 0;

    /// How many values there are; 0 for a continuous value, whose index is always 0.
    [[nodiscard]] virtual int32_t GetDiscreteCount() const;
    virtual void SetDiscreteIndex(int32_t index);
    [[nodiscard]] virtual int32_t GetDiscreteIndex() const;

private:
    TextGetter getter = nullptr;
    TextSetter setter = nullptr;
};
