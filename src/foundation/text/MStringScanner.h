#pragma once

#include "foundation/base/MRefCountedObject.h"
#include "foundation/text/MFormatSpecification.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MString.h"

#include <concepts>
#include <cstdint>

struct MStringScannerData {
    struct Argument {
        MString text;
        bool hexadecimal = false;
    };

    Argument arguments[MFormatSpecification::MaximumPlaceholders];
    int32_t capturedCount = 0;
    int32_t next = 0;
};

/// Takes fixed-form text apart by a format string with numbered placeholders (see MFormatSpecification.h):
///
///     MStringScanner("{0}:{1}", "12:34").Take(hours).Take(minutes);
///
/// A blank of the format meets any run of blanks; other characters must be the same in the input. A
/// placeholder captures up to the format's next character, or to the end. Where format and input part,
/// scanning ends without an error, and the count tells what was found.
class MStringScanner : public MRefCountedObject<MStringScannerData> {
public:
    /// Raises "Formatting string ends in an argument specification." (0).
    MStringScanner(const MString& format, const MString& input);

    /// How many values there are to take. Falls to the index of the first whole number that was none.
    [[nodiscard]] int32_t GetCapturedCount() const { return GetData().capturedCount; }

    /// Take the values in the order of the placeholder numbers. Beyond the count the target stays as it
    /// is. A whole number of up to 32 bits that has no digits gives 0 and ends the taking.
    MStringScanner& Take(MString& value);
    MStringScanner& Take(float& value);
    MStringScanner& Take(double& value);
    template <std::integral Integer>
    MStringScanner& Take(Integer& value) {
        int64_t wide = 0;
        if (TakeInteger(wide, sizeof(Integer) < sizeof(int64_t))) value = static_cast<Integer>(wide);
        return *this;
    }

private:
    [[nodiscard]] const MStringScannerData::Argument* TakeArgument();
    bool TakeInteger(int64_t& value, bool needsDigits);
    /// False if format and input part here.
    bool ScanBlank(const MString& format, int32_t& position, const MString& input, int32_t& inputPosition);
    void ScanPlaceholder(const MString& format, int32_t& position, const MString& input,
                         int32_t& inputPosition);
};
