#include "streams/basic/MConsoleStream.h"

#include "streams/basic/MConsole.h"

#include <cstring>

MConsoleStream::MConsoleStream() {
    readHandle = stdin;
    writeHandle = stdout;
}

MConsoleStream::~MConsoleStream() {
    readHandle = nullptr;
    writeHandle = nullptr;
}

void MConsoleStream::Write(const void* block, int32_t size) {
    RequireOpen();
    const auto* bytes = static_cast<const char*>(block);
    for (int32_t i = 0; i < size; ++i)
        if (std::putc(bytes[i], writeHandle) == EOF) RaiseWriteError();
}

int32_t MConsoleStream::Read(void* block, int32_t size) {
    RequireOpen();
    auto* bytes = static_cast<char*>(block);
    int32_t count = 0;
    for (int byte; count < size && (byte = std::getc(readHandle)) != EOF; ++count)
        bytes[count] = static_cast<char>(byte);
    return count;
}

MLineState MConsoleStream::ReadLine(char* buffer, int32_t size) {
    RequireOpen();
    if (!std::fgets(buffer, size, readHandle)) {
        if (size > 0) buffer[0] = 0;
        return MLineState::End;
    }
    buffer[std::strcspn(buffer, "\r\n")] = 0;
    return MLineState::Complete;
}

void MConsoleStream::WriteString(const MString& text) {
    RequireOpen();
    if (!MWriteConsoleText(writeHandle, text)) RaiseWriteError();
}

void MConsoleStream::WriteLine(const MString& text) {
    WriteString(text + "\n");
}

void MConsoleStream::Flush() {
    RequireOpen();
    if (std::fflush(writeHandle) != 0) RaiseWriteError();
}
