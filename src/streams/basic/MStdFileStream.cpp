#include "streams/basic/MStdFileStream.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "streams/basic/MRuntimeFile.h"

#include <utility>

namespace {

/// Large enough that the filters, which read by a few KiB, cost few calls of the system. The runtime library
/// of Linux takes a size only together with the memory.
constexpr size_t BufferSize = 1 << 16;

constexpr const char* WriteErrorText = "Error writing to file \"{0}\". Probably disk full.";

std::FILE* OpenRuntimeFile(const MString& name, MOpenFlags flags) {
    if (name.IsEmpty() || !(flags & (MOpenRead | MOpenWrite))) return nullptr;
    if (!(flags & MOpenWrite)) return MOpenRuntimeFile(name, MRuntimeAccess::Read);
    return flags & MOpenCreate ? MCreateRuntimeFile(name)
                               : MOpenRuntimeFile(name, MRuntimeAccess::ReadAndWrite);
}

}  // namespace

MStdFileStream::~MStdFileStream() {
    (void)CloseHandles();
}

void MStdFileStream::Open(const MString& name, MOpenFlags flags) {
    Close();
    if (!name.IsEmpty()) fileName = name;

    const bool isEmptied = (flags & MOpenWrite) && (flags & MOpenCreate);
    std::FILE* file = nullptr;
    try {
        file = OpenRuntimeFile(fileName, flags);
    } catch (const MException& exception) {
        throw MException(MString(), exception.GetMessage(), MExceptionStreamOpen);
    }
    if (!file && MFile::IsDevice(fileName))
        MRaise(MExceptionStreamOpen, "\"{0}\" is a device or a pipe where a file is expected.", fileName);
    if (!file && (flags & MOpenCreate))
        MRaise(
            MExceptionStreamOpen,
            "File \"{0}\" could not be created. Make sure there is no write-protected file already existing.",
            fileName);
    if (!file) MRaise(MExceptionStreamOpen, "File \"{0}\" could not be open. Make sure it exists.", fileName);

    runtimeBuffer = std::make_unique_for_overwrite<char[]>(BufferSize);
    std::setvbuf(file, runtimeBuffer.get(), _IOFBF, BufferSize);
    readHandle = writeHandle = file;
    sizeAtOpening = isEmptied ? 0 : GetSize();
}

void MStdFileStream::Close() {
    if (CloseHandles()) return;
    MRaise(MExceptionStreamError, WriteErrorText, fileName);
}

bool MStdFileStream::CloseHandles() noexcept {
    std::FILE* reader = std::exchange(readHandle, nullptr);
    std::FILE* writer = std::exchange(writeHandle, nullptr);
    direction = Direction::None;
    const bool isKnown = std::exchange(isLossTold, false);
    if (reader && reader != writer) std::fclose(reader);
    const bool isAllWritten = !writer || std::fclose(writer) == 0;
    runtimeBuffer.reset();
    return isAllWritten || isKnown;
}

void MStdFileStream::RequireOpen() const {
    if (!readHandle && !writeHandle)
        MRaise(MExceptionStreamNotInitialized, "File stream is not initialized.");
}

void MStdFileStream::RaiseWriteError() {
    isLossTold = true;
    if (writeHandle) std::clearerr(writeHandle);
    MRaise(MExceptionStreamError, WriteErrorText, fileName);
}

void MStdFileStream::RaiseReadError() {
    std::clearerr(readHandle);
    MRaise(MExceptionStreamError, "Error reading from file \"{0}\".", fileName);
}

void MStdFileStream::Turn(Direction wanted) {
    RequireOpen();
    if (direction == wanted) return;
    Flush();
    if (direction != Direction::None && readHandle == writeHandle &&
        !MSeekRuntimeFile(readHandle, 0, SEEK_CUR))
        MRaise(MExceptionStreamError, "Could not perform file seek.");
    direction = wanted;
}

void MStdFileStream::Write(const void* block, int32_t size) {
    Turn(Direction::Writing);
    const auto* bytes = static_cast<const char*>(block);
    while (size > 0) {
        const size_t written = std::fwrite(bytes, 1, static_cast<size_t>(size), writeHandle);
        // On a full disk a runtime library may go on taking blocks that it then drops; only the flag tells.
        if (written < 1 || std::ferror(writeHandle)) RaiseWriteError();
        bytes += written;
        size -= static_cast<int32_t>(written);
    }
}

int32_t MStdFileStream::Read(void* block, int32_t size) {
    Turn(Direction::Reading);
    if (size <= 0) return 0;
    const size_t count = std::fread(block, 1, static_cast<size_t>(size), readHandle);
    if (count < static_cast<size_t>(size) && !std::feof(readHandle) && std::ferror(readHandle))
        RaiseReadError();
    return static_cast<int32_t>(count);
}

MLineState MStdFileStream::ReadLine(char* buffer, int32_t size) {
    Turn(Direction::Reading);
    if (size <= 0) return MLineState::Partial;
    MLineState state = MLineState::Complete;
    bool isAnyRead = false;
    int32_t length = 0;
    int byte;
    while ((byte = std::getc(readHandle)) != EOF && byte != '\n' && byte != 0) {
        isAnyRead = true;
        if (byte == '\r') continue;
        if (length + 1 >= size) {
            std::ungetc(byte, readHandle);
            state = MLineState::Partial;
            break;
        }
        buffer[length++] = static_cast<char>(byte);
    }
    buffer[length] = 0;
    if (byte != EOF) return state;
    if (std::ferror(readHandle)) RaiseReadError();
    return isAnyRead ? MLineState::Complete : MLineState::End;
}

void MStdFileStream::Seek(int64_t offset, MSeekOrigin origin) {
    Flush();
    if (!MSeekRuntimeFile(GetHandle(), offset, static_cast<int>(origin)))
        MRaise(MExceptionStreamError, "Could not perform file seek.");
    direction = Direction::None;
}

int64_t MStdFileStream::GetPosition() {
    RequireOpen();
    return MTellRuntimeFile(GetHandle());
}

void MStdFileStream::Flush() {
    RequireOpen();
    if (direction == Direction::Writing && std::fflush(writeHandle) != 0) RaiseWriteError();
}

void MStdFileStream::Sync() {
    Flush();
    if (!writeHandle || !MSyncRuntimeFile(writeHandle)) RaiseWriteError();
}

void MStdFileStream::Reserve(int64_t size) {
    Flush();
    if (!writeHandle || !MReserveRuntimeFile(writeHandle, size)) RaiseWriteError();
}

bool MStdFileStream::IsEnd() {
    return GetPosition() >= sizeAtOpening;
}

void MStdFileStream::Truncate() {
    const int64_t position = GetPosition();
    // Flushed in either direction: what was read ahead beyond the new end must not be read any more.
    if (!writeHandle || std::fflush(writeHandle) != 0 || !MTruncateRuntimeFile(writeHandle, position))
        RaiseWriteError();
    Seek(position, MSeekOrigin::Begin);
}

int64_t MStdFileStream::GetSize() {
    const int64_t position = GetPosition();
    Seek(0, MSeekOrigin::End);
    const int64_t size = GetPosition();
    Seek(position, MSeekOrigin::Begin);
    return size;
}
