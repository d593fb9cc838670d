#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MChar.h"

#include <cstdint>

/// Filters that say which characters a text field accepts. They have no state, so one of each is enough;
/// `MString::KeepAccepted` applies one to a text. Letters are the ASCII ones.
class MCharFilter {
public:
    /// What `Interface::GetFlags` is made of: the kinds of characters that pass.
    enum Flag : uint8_t {
        Letters = 1,
        Digits = 2,
        Separators = 4,
        HexadecimalLetters = 8,
        OtherCharacters = 16,
    };

    class Interface : public MObject {
    public:
        [[nodiscard]] virtual bool Accept(MChar character) const = 0;
        [[nodiscard]] virtual uint8_t GetFlags() const = 0;
    };

    class AllFilter;
    class LettersFilter;
    class AlphaStrictFilter;
    class AlphaFilter;
    class IntegerFilter;
    class IntegerHexaFilter;
    class FloatFilter;
};

class MCharFilter::AllFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

class MCharFilter::LettersFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

/// Letters and digits.
class MCharFilter::AlphaStrictFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

/// Letters, digits, "-", "." and the space.
class MCharFilter::AlphaFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

/// Digits and "-".
class MCharFilter::IntegerFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

/// Hexadecimal digits of either case, without a sign.
class MCharFilter::IntegerHexaFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};

/// Digits, "-" and ".".
class MCharFilter::FloatFilter final : public Interface {
public:
    [[nodiscard]] bool Accept(MChar character) const override;
    [[nodiscard]] uint8_t GetFlags() const override;
};
