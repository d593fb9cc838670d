#include "foundation/text/MTypedNumber.h"

#include "foundation/text/MFormatSpecification.h"

#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace {

/// Collects the characters of a number in the form that the runtime library reads.
class NumberScan {
public:
    explicit NumberScan(const MString& source) : text(source.Trimmed()) {}

    void TakeSign() {
        if (Peek() == '-') digits += '-';
        if (Peek() == '-' || Peek() == '+') ++position;
    }
    /// The number of digits taken.
    int32_t TakeDigits() {
        const int32_t first = position;
        for (; Peek().IsDigit(); ++position) digits += Peek().ToNarrow();
        return position - first;
    }
    bool TakeDecimals() {
        if (Peek() != '.' && Peek() != ',') return false;
        ++position;
        digits += '.';
        return TakeDigits() > 0;
    }
    /// Nothing is taken of an "e" without digits: it may begin a unit.
    void TakeExponent() {
        if (Peek().ToLower() != 'e') return;
        const int32_t start = position++;
        const size_t size = digits.size();
        digits += 'e';
        TakeSign();
        if (TakeDigits() > 0) return;
        position = start;
        digits.resize(size);
    }

    [[nodiscard]] MString GetRest() const { return text.Substring(position).Trimmed(); }
    /// False if the number is out of range.
    template <class Number>
    [[nodiscard]] bool Convert(Number& number) const {
        const char* const end = digits.data() + digits.size();
        return std::from_chars(digits.data(), end, number).ec == std::errc();
    }
    [[nodiscard]] bool IsNegative() const { return digits.starts_with('-'); }

private:
    [[nodiscard]] MChar Peek() const { return position < text.GetLength() ? text[position] : MChar(u'\0'); }

    MString text;
    int32_t position = 0;
    std::string digits;
};

}  // namespace

bool MReadTypedNumber(const MString& text, double& number, MString& unit) {
    NumberScan scan(text);
    scan.TakeSign();
    const bool hasWhole = scan.TakeDigits() > 0;
    const bool hasDecimals = scan.TakeDecimals();
    if (!hasWhole && !hasDecimals) return false;
    scan.TakeExponent();
    if (!scan.Convert(number)) return false;
    unit = scan.GetRest();
    return true;
}

bool MReadTypedInteger(const MString& text, int64_t& number, MString& unit) {
    using Limits = std::numeric_limits<int64_t>;
    NumberScan scan(text);
    scan.TakeSign();
    if (scan.TakeDigits() == 0) return false;
    if (!scan.Convert(number)) number = scan.IsNegative() ? Limits::min() : Limits::max();
    unit = scan.GetRest();
    return true;
}

bool MReadTypedMeasure(const MString& text, std::span<const MTypedUnit> units, double& value) {
    double number = 0;
    MString name;
    if (!MReadTypedNumber(text, number, name)) return false;
    for (const MTypedUnit& unit : units) {
        if (name != unit.name) continue;
        value = number * unit.multiplier / unit.divisor;
        return true;
    }
    return false;
}

MString MWithoutFormat(const MString& text, const MString& format) {
    MString before;
    MString behind;
    MString* literal = &before;
    for (int32_t position = 0; position < format.GetLength();) {
        if (MFormatSpecification::StartsAt(format, position)) {
            (void)MFormatSpecification::Read(format, ++position);
            behind = MString();
            literal = &behind;
        } else {
            literal->Append(MFormatSpecification::ReadLiteral(format, position));
        }
    }
    before.Trim();
    behind.Trim();
    MString bare = text.Trimmed();
    if (bare.StartsWith(before)) bare.Remove(0, before.GetLength());
    if (bare.EndsWith(behind)) bare.Cut(bare.GetLength() - behind.GetLength());
    return bare.Trimmed();
}
