#include "streams/basic/MStream.h"

#include "foundation/base/MRaise.h"
#include "foundation/text/encodings/MEncoding.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int32_t ScratchSize = 1024;
constexpr int32_t TextPieceSize = 256;
constexpr int32_t HexPieceSize = 128;
constexpr int32_t SmallCopySize = 4096;
constexpr int32_t LargeCopySize = 1 << 20;
constexpr int32_t MaximumWireSize = 65535;

void CopyInPieces(MStream& source, MStream& target, void* piece, int32_t size) {
    int32_t count;
    do {
        count = source.Read(piece, size);
        if (count > 0) target.Write(piece, count);
    } while (count == size);
}

}  // namespace

void MStream::RaiseNotImplemented(const char* service) {
    MRaise(MExceptionNotImplemented, "Service \"{0}\" is not implemented.", service);
}

MStream* MStream::GetSubStream() {
    RaiseNotImplemented("return substream");
}

void MStream::Write(const void* /*block*/, int32_t /*size*/) {
    RaiseNotImplemented("write to stream");
}

void MStream::WriteFill(int32_t count) {
    const char scratch[ScratchSize] = {};
    for (; count > 0; count -= ScratchSize) Write(scratch, std::min(count, ScratchSize));
}

int32_t MStream::Read(void* /*block*/, int32_t /*size*/) {
    RaiseNotImplemented("read from stream");
}

MLineState MStream::ReadLine(char* buffer, int32_t size) {
    bool isAnyRead = false;
    int32_t length = 0;
    MLineState state = MLineState::Partial;
    while (length < size - 1) {
        char byte;
        if (Read(&byte, 1) < 1) {
            state = isAnyRead ? MLineState::Complete : MLineState::End;
            break;
        }
        isAnyRead = true;
        if (byte == '\n' || byte == 0) {
            state = MLineState::Complete;
            break;
        }
        if (byte != '\r') buffer[length++] = byte;
    }
    if (size > 0) buffer[length] = 0;
    return state;
}

void MStream::WriteString(const MString& text) {
    const MCHARBuffer encoded = text.ToUTF8();
    Write(encoded.Get(), std::min(text.GetLength(), encoded.GetCount()));
}

void MStream::WriteLine(const MString& text) {
    WriteString(text);
    WriteNewline();
}

void MStream::Seek(int64_t offset, MSeekOrigin origin) {
    int64_t distance = offset;
    switch (origin) {
    case MSeekOrigin::Begin: distance -= GetPosition(); break;
    case MSeekOrigin::Current: break;
    case MSeekOrigin::End: distance += GetSize() - GetPosition(); break;
    default: MRaise(MExceptionInvalidArgument, "Invalid seek origin.");
    }
    if (distance < 0) RaiseNotImplemented("backward seek in a stream");

    char scratch[ScratchSize];
    while (distance > 0) {
        const auto size = static_cast<int32_t>(std::min<int64_t>(distance, ScratchSize));
        const int32_t count = Read(scratch, size);
        if (count < size) return;
        distance -= count;
    }
}

int64_t MStream::GetPosition() {
    RaiseNotImplemented("get stream position");
}

void MStream::Flush() {
    RaiseNotImplemented("flush stream");
}

bool MStream::IsEnd() {
    RaiseNotImplemented("end of stream test");
}

void MStream::Truncate() {
    RaiseNotImplemented("truncate stream");
}

int64_t MStream::GetSize() {
    RaiseNotImplemented("stream size detection");
}

bool MStream::IsOpen() {
    return true;
}

void MStream::ReadRequired(void* block, int32_t size) {
    if (Read(block, size) < size) MRaise(MExceptionStreamError, "Could not read required data from stream.");
}

bool MStream::LoadLine(MString& line) {
    line = MString();
    char buffer[TextPieceSize];
    MLineState state;
    do {
        state = ReadLine(buffer, TextPieceSize);
        line.Append(buffer, static_cast<int32_t>(std::strlen(buffer)));
    } while (state == MLineState::Partial);
    return !line.IsEmpty() || state != MLineState::End;
}

MString MStream::LoadRequiredLine() {
    MString line;
    if (!LoadLine(line)) MRaise(MExceptionStreamError, "Could not load a line from stream.");
    return line;
}

MString MStream::LoadText(bool rewind) {
    if (rewind) Rewind();
    MString text;
    char piece[TextPieceSize];
    int32_t count;
    do {
        count = std::max(Read(piece, TextPieceSize), 0);
        std::replace(piece, piece + count, '\0', '\n');
        text.Append(piece, count);
    } while (count == TextPieceSize);
    text.RemoveNonTextControls();
    return text;
}

MString MStream::LoadHexText() {
    Rewind();
    MString text;
    uint8_t piece[HexPieceSize];
    int32_t count;
    do {
        count = Read(piece, HexPieceSize);
        for (int32_t i = 0; i < count; ++i) {
            text.Append(MChar::FromHexDigit(piece[i] >> 4));
            text.Append(MChar::FromHexDigit(piece[i]));
        }
    } while (count == HexPieceSize);
    return text;
}

void MStream::StoreHexText(const MString& text) {
    uint8_t piece[HexPieceSize];
    int32_t count = 0;
    for (int32_t i = 0; i + 1 < text.GetLength(); i += 2) {
        piece[count++] = static_cast<uint8_t>(text[i].ToHexDigit() << 4 | text[i + 1].ToHexDigit());
        if (count < HexPieceSize) continue;
        Write(piece, count);
        count = 0;
    }
    if (count > 0) Write(piece, count);
}

void MStream::WriteWireString(const MString& text) {
    const MCHARBuffer encoded = text.ToUTF8(false);
    const int32_t size = std::min(encoded.GetCount(), MaximumWireSize);
    WriteInt16(static_cast<int16_t>(size));
    if (size > 0) Write(encoded.Get(), size);
}

MString MStream::ReadWireString() {
    const int32_t size = static_cast<uint16_t>(ReadInt16());
    MCHARBuffer encoded(size);
    if (size > 0) ReadRequired(encoded.Edit(), size);
    return MEncoding::GetUTF8Codec().Decode(encoded);
}

void MStream::CopyAllTo(MStream& target) {
    char piece[SmallCopySize];
    CopyInPieces(*this, target, piece, SmallCopySize);
}

void MStream::CopyAllToInLargePieces(MStream& target) {
    MBuffer piece(LargeCopySize);
    CopyInPieces(*this, target, piece.EditBlock(), LargeCopySize);
}
