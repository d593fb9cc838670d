#pragma once

#include "streams/basic/MStdFileStream.h"

/// Standard input and output, which stay open. Bytes pass as they are; text is written whole and readable,
/// whatever its characters.
class MConsoleStream final : public MStdFileStream {
public:
    MConsoleStream();
    ~MConsoleStream() override;

    void Write(const void* block, int32_t size) override;
    int32_t Read(void* block, int32_t size) override;
    /// The text up to the first byte 13 or 10. A longer line comes in pieces, each of them `Complete`.
    MLineState ReadLine(char* buffer, int32_t size) override;
    void WriteString(const MString& text) override;
    void WriteLine(const MString& text) override;
    void Flush() override;
};
