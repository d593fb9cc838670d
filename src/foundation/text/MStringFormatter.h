#pragma once

#include "foundation/base/MRefCountedObject.h"
#include "foundation/text/MFormatSpecification.h"
#include "foundation/text/MString.h"

#include <concepts>
#include <cstdint>

struct MStringFormatterData {
    /// Where a placeholder's value goes. Of several placeholders at one offset `order` keeps the sequence.
    struct Argument {
        MFormatSpecification specification;
        int32_t offset = -1;
        uint8_t order = 0;
    };

    Argument arguments[MFormatSpecification::MaximumPlaceholders];
    MString result;
    int32_t count = 0;
    int32_t next = 0;
};

/// Builds text from a format string with numbered placeholders (see MFormatSpecification.h). Values are
/// inserted in the order of the placeholder numbers, wherever these stand in the text:
///
///     MStringFormatter("{1} of {0}").Insert(total).Insert(done).GetResult()
///
/// Of a number that occurs twice only the last occurrence takes the value; a placeholder without a
/// value leaves nothing; a value without a placeholder is dropped. `MFormat` is the short way to write it.
class MStringFormatter : public MRefCountedObject<MStringFormatterData> {
public:
    /// Raises "Formatting string ends in an argument specification." (0).
    explicit MStringFormatter(const MString& format);

    MStringFormatter& Insert(const MString& value);
    MStringFormatter& Insert(const char* value) { return Insert(MString(value)); }
    MStringFormatter& Insert(double value);
    template <std::integral Integer>
    MStringFormatter& Insert(Integer value) {
        const auto bits = static_cast<uint64_t>(static_cast<int64_t>(value));
        return value < 0 ? InsertInteger(0 - bits, true) : InsertInteger(bits, false);
    }
    /// A character is neither a number nor a text: say which.
    MStringFormatter& Insert(MChar value) = delete;

    [[nodiscard]] const MString& GetResult() const { return GetData().result; }

private:
    void AddPlaceholder(const MFormatSpecification& specification);
    MStringFormatter& InsertInteger(uint64_t magnitude, bool isNegative);
    /// The specification of the placeholder whose turn it is.
    [[nodiscard]] MFormatSpecification GetNextSpecification() const;
};

/// The format string with its placeholders filled by the values in order.
/// Raises "Formatting string ends in an argument specification." (0).
template <class... Values>
[[nodiscard]] MString MFormat(const MString& format, const Values&... values) {
    MStringFormatter formatter(format);
    (formatter.Insert(values), ...);
    return formatter.GetResult();
}
