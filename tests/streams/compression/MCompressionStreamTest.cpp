#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MSizeStream.h"
#include "streams/compression/MBZIPStream.h"
#include "streams/compression/MZLibStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestText.h"

#include <bzlib.h>
#include <gtest/gtest.h>
#include <optional>
#include <zlib.h>

namespace {

const std::string InvalidContent = "100: Source compressed stream has invalid content.";
const std::string SourceEnded = "0: Source compressed stream has invalid content.";

/// Compressible, but not so much that a few bytes hold it all.
std::string MakeText(size_t size) {
    std::string text;
    for (uint32_t i = 1; text.size() < size; i = i * 1664525 + 1013904223)
        text += std::to_string(i >> 16) + " words ";
    text.resize(size);
    return text;
}

std::string BytesOf(const MMemoryStream& stream, int64_t size) {
    return std::string(stream.GetBuffer().Get() ? stream.GetBuffer().Get() : "", static_cast<size_t>(size));
}

std::string DeflateByLibrary(const std::string& text) {
    uLongf size = compressBound(text.size());
    std::string packed(size, 0);
    EXPECT_EQ(compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                        reinterpret_cast<const Bytef*>(text.data()), text.size(), 9),
              Z_OK);
    packed.resize(size);
    return packed;
}

std::string BzipByLibrary(std::string text) {
    auto size = static_cast<unsigned>(text.size() + text.size() / 100 + 600);
    std::string packed(size, 0);
    EXPECT_EQ(BZ2_bzBuffToBuffCompress(packed.data(), &size, text.data(), static_cast<unsigned>(text.size()),
                                       9, 0, 0),
              BZ_OK);
    packed.resize(size);
    return packed;
}

void OpenReader(MZLibStream& reader, MStream& source) {
    reader.Open(&source, false);
}

void OpenReader(MBZIPStream& reader, MStream& source) {
    reader.Open(&source);
}

/// Reads a compressed text in pieces; a failure is given instead of the text.
template <class Reader>
std::string Unpack(MStream& source, size_t size, int32_t piece) {
    std::string text(size, 0);
    const std::string failure = FailureOf([&] {
        Reader reader;
        OpenReader(reader, source);
        for (size_t done = 0; done < size;) {
            const auto wanted =
                static_cast<int32_t>(std::min<size_t>(static_cast<size_t>(piece), size - done));
            reader.ReadRequired(text.data() + done, wanted);
            done += static_cast<size_t>(wanted);
            EXPECT_EQ(reader.GetPosition(), static_cast<int64_t>(done));
        }
    });
    return failure == "none" ? text : failure;
}

template <class Reader>
std::string Unpack(const std::string& packed, size_t size, int32_t piece = 1 << 20) {
    MMemoryStream source(packed.data(), static_cast<int32_t>(packed.size()));
    return Unpack<Reader>(source, size, piece);
}

TEST(MCompressionStream, WhatTheLibrariesPackIsReadInPiecesOfAnySize) {
    for (const size_t size : {1u, 4096u, 300000u}) {
        const std::string text = MakeText(size);
        const std::string deflated = DeflateByLibrary(text);
        const std::string bzipped = BzipByLibrary(text);
        for (const int32_t piece : {1, 4095, 1 << 20}) {
            EXPECT_TRUE(Unpack<MZLibStream>(deflated, size, piece) == text) << size << " by " << piece;
            EXPECT_TRUE(Unpack<MBZIPStream>(bzipped, size, piece) == text) << size << " by " << piece;
        }
    }
}

TEST(MCompressionStream, ASourceMayGiveAByteAtATime) {
    const std::string text = MakeText(20000);
    const std::string deflated = DeflateByLibrary(text);
    const std::string bzipped = BzipByLibrary(text);
    MMemoryStream deflatedSource(deflated.data(), static_cast<int32_t>(deflated.size()));
    MMemoryStream bzippedSource(bzipped.data(), static_cast<int32_t>(bzipped.size()));
    MTricklingStream slowDeflated(&deflatedSource), slowBzipped(&bzippedSource);
    EXPECT_TRUE(Unpack<MZLibStream>(slowDeflated, text.size(), 777) == text);
    EXPECT_TRUE(Unpack<MBZIPStream>(slowBzipped, text.size(), 777) == text);
}

TEST(MCompressionStream, ZLibWritesWhatItReadsAtEveryLevel) {
    const std::string text = MakeText(100000);
    for (const int32_t level : {-5, 0, 1, 9, 50}) {
        MMemoryStream target;
        MZLibStream writer;
        writer.Open(&target, true, level);
        for (size_t i = 0; i < text.size(); i += 999)
            writer.Write(text.data() + i, static_cast<int32_t>(std::min<size_t>(999, text.size() - i)));
        EXPECT_EQ(writer.GetPosition(), 100000);
        writer.Finish();
        writer.Close();
        EXPECT_EQ(FailureOf([&] { writer.Close(); }), "none");
        const std::string packed = BytesOf(target, target.GetSize());
        EXPECT_TRUE(Unpack<MZLibStream>(packed, text.size()) == text) << level;
        EXPECT_EQ(packed.size() < text.size(), level > 0) << level;
    }
}

TEST(MCompressionStream, ReadingBehindTheEnd) {
    const std::string text = MakeText(1000);
    const std::string deflated = DeflateByLibrary(text);
    char block[2000];
    MMemoryStream source(deflated.data(), static_cast<int32_t>(deflated.size()));
    MZLibStream zlib;
    zlib.Open(&source, false);
    EXPECT_EQ(zlib.Read(block, 2000), 1000);
    EXPECT_EQ(FailureOf([&] { zlib.Read(block, 1); }), SourceEnded);
    EXPECT_TRUE(zlib.IsEnd());

    const std::string bzipped = BzipByLibrary(text);
    MMemoryStream bzipSource(bzipped.data(), static_cast<int32_t>(bzipped.size()));
    MBZIPStream bzip;
    bzip.Open(&bzipSource);
    bzip.Seek(400, MSeekOrigin::Begin);
    EXPECT_FALSE(bzip.IsEnd());
    EXPECT_EQ(bzip.Read(block, 2000), 600);
    EXPECT_TRUE(bzip.IsEnd());
    EXPECT_EQ(bzip.Read(block, 1), 0);
    EXPECT_EQ(bzip.GetPosition(), 1000);
}

TEST(MCompressionStream, AStreamCutAnywhereFailsAndNeverHangs) {
    const std::string text = MakeText(500);
    const std::string deflated = DeflateByLibrary(text);
    // Without the check sum at its end all of the text is there.
    for (size_t length = 0; length + 4 < deflated.size(); ++length)
        EXPECT_EQ(Unpack<MZLibStream>(deflated.substr(0, length), text.size() + 1), SourceEnded) << length;
    const std::string bzipped = BzipByLibrary(text);
    for (size_t length = 0; length < bzipped.size(); ++length)
        EXPECT_EQ(Unpack<MBZIPStream>(bzipped.substr(0, length), text.size() + 1), InvalidContent) << length;
}

TEST(MCompressionStream, AnyFlippedBitIsNoticedBeforeTheEnd) {
    const std::string text = MakeText(500);
    const std::string deflated = DeflateByLibrary(text);
    const std::string bzipped = BzipByLibrary(text);
    const auto flip = [](std::string packed, size_t bit) {
        packed[bit / 8] = static_cast<char>(packed[bit / 8] ^ 1 << bit % 8);
        return packed;
    };
    for (size_t bit = 0; bit < deflated.size() * 8; ++bit)
        EXPECT_NE(Unpack<MZLibStream>(flip(deflated, bit), text.size() + 1), text) << bit;
    for (size_t bit = 0; bit < bzipped.size() * 8; ++bit)
        EXPECT_NE(Unpack<MBZIPStream>(flip(bzipped, bit), text.size() + 1), text) << bit;
}

TEST(MCompressionStream, AForgottenFinishShowsWhenTheStreamGoes) {
    MMemoryStream target;
    const std::string unfinished = "100: ZLIB stream has not been terminated.";
    EXPECT_EQ(FailureOf([&] {
                  MZLibStream writer;
                  writer.Open(&target, true);
              }),
              unfinished);

    std::optional<MZLibStream> writer(std::in_place);
    writer->Open(&target, true);
    EXPECT_EQ(FailureOf([&] { writer->Close(); }), unfinished);
    EXPECT_FALSE(writer->IsOpen());
    EXPECT_EQ(FailureOf([&] { writer.reset(); }), "none");

    // A failure that is already on its way is the one to hear of.
    EXPECT_EQ(FailureOf([&] {
                  MFailingStream full(&target, 10);
                  MZLibStream unwound;
                  unwound.Open(&full, true);
                  const std::string text = MakeText(1000000);
                  unwound.Write(text.data(), 1000000);
              }),
              "100: Injected failure.");
}

TEST(MCompressionStream, StreamsOfTheOtherDirectionAreRefused) {
    const std::string compressionFailed = "Data could not be compressed.";
    MMemoryStream memory;
    MZLibStream reader;
    reader.Open(&memory, false);
    EXPECT_EQ(FailureOf([&] { reader.Write("x", 1); }), "100: " + compressionFailed);
    EXPECT_EQ(FailureOf([&] { reader.Finish(); }), "0: " + compressionFailed);
    MBZIPStream bzip;
    char byte;
    EXPECT_EQ(FailureOf([&] { bzip.Read(&byte, 1); }), InvalidContent);
    bzip.Open(&memory);
    EXPECT_EQ(FailureOf([&] { bzip.Write("x", 1); }), "100: " + compressionFailed);
    EXPECT_EQ(FailureOf([&] { bzip.Finish(); }), "0: " + compressionFailed);
    bzip.Open(nullptr);
    EXPECT_FALSE(bzip.IsOpen());
}

}  // namespace
