#include "foundation/text/MStringScanner.h"

namespace {

void SkipBlanks(const MString& text, int32_t& position) {
    while (position < text.GetLength() && text[position].IsBlank()) ++position;
}

/// Where a capture ends whose placeholder stands before `position` of the format.
int32_t FindCaptureEnd(const MString& format, int32_t position, const MString& input, int32_t start) {
    if (position >= format.GetLength()) return input.GetLength();
    const MChar delimiter = format[position];
    int32_t end = start;
    while (end < input.GetLength() && (delimiter.IsBlank() ? !input[end].IsBlank() : input[end] != delimiter))
        ++end;
    return end;
}

}  // namespace

MStringScanner::MStringScanner(const MString& format, const MString& input) {
    CreateData();
    int32_t position = 0;
    int32_t inputPosition = 0;
    while (position < format.GetLength() && inputPosition < input.GetLength()) {
        if (MFormatSpecification::StartsAt(format, position))
            ScanPlaceholder(format, position, input, inputPosition);
        else if (format[position].IsBlank()) {
            if (!ScanBlank(format, position, input, inputPosition)) return;
        } else if (MFormatSpecification::ReadLiteral(format, position) != input[inputPosition++])
            return;
    }
}

bool MStringScanner::ScanBlank(const MString& format, int32_t& position, const MString& input,
                               int32_t& inputPosition) {
    if (!input[inputPosition].IsBlank()) return false;
    SkipBlanks(format, position);
    SkipBlanks(input, inputPosition);
    return true;
}

void MStringScanner::ScanPlaceholder(const MString& format, int32_t& position, const MString& input,
                                     int32_t& inputPosition) {
    const MFormatSpecification specification = MFormatSpecification::Read(format, ++position);
    const int32_t end = FindCaptureEnd(format, position, input, inputPosition);
    MStringScannerData& data = GetData();
    if (specification.number < MFormatSpecification::MaximumPlaceholders) {
        data.arguments[specification.number] = {input.Substring(inputPosition, end - inputPosition),
                                                specification.hexadecimal};
        ++data.capturedCount;
    }
    inputPosition = end;
}

const MStringScannerData::Argument* MStringScanner::TakeArgument() {
    MStringScannerData& data = GetData();
    const bool isThere =
        data.next < data.capturedCount && data.next < MFormatSpecification::MaximumPlaceholders;
    return isThere ? &data.arguments[data.next++] : nullptr;
}

MStringScanner& MStringScanner::Take(MString& value) {
    if (const auto* argument = TakeArgument()) value = argument->text;
    return *this;
}

MStringScanner& MStringScanner::Take(double& value) {
    if (const auto* argument = TakeArgument()) value = MParseDouble(argument->text);
    return *this;
}

MStringScanner& MStringScanner::Take(float& value) {
    if (const auto* argument = TakeArgument()) value = static_cast<float>(MParseDouble(argument->text));
    return *this;
}

bool MStringScanner::TakeInteger(int64_t& value, bool needsDigits) {
    const auto* argument = TakeArgument();
    if (!argument) return false;
    int32_t consumed = 0;
    value = MParseInt64(argument->text, 0, argument->hexadecimal ? 16 : 10, &consumed);
    if (needsDigits && consumed == 0) GetData().capturedCount = --GetData().next;
    return true;
}
