#include "streams/resources/MResourceLibrary.h"

#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

const std::string InvalidFormat = "100: Invalid resource library format.";
const std::string CutOff = "100: Could not read required data from stream.";

std::string Deflate(const std::string& text) {
    MMemoryStream packed;
    MZLibStream writer;
    writer.Open(&packed, true);
    writer.Write(text.data(), static_cast<int32_t>(text.size()));
    writer.Finish();
    return {packed.GetBuffer().Get(), static_cast<size_t>(packed.GetSize())};
}

std::string Word(int64_t value) {
    const auto word = static_cast<uint32_t>(value);
    return {static_cast<char>(word), static_cast<char>(word >> 8), static_cast<char>(word >> 16),
            static_cast<char>(word >> 24)};
}

std::string MakeBlob(const std::string& document, const std::string& data, int32_t reserved = 0) {
    const std::string index = Deflate("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" + document);
    return Word(reserved) + Word(static_cast<int64_t>(index.size())) +
           Word(static_cast<int64_t>(data.size())) + index + data;
}

MMemoryStream StreamOf(const std::string& bytes) {
    return {bytes.data(), static_cast<int32_t>(bytes.size())};
}

std::string ReadSome(MStream& stream, size_t size) {
    std::string text(size, 0);
    text.resize(static_cast<size_t>(stream.Read(text.data(), static_cast<int32_t>(size))));
    return text;
}

/// How loading fails, which has to be the same from memory, from another stream and from a file.
std::string LoadFailure(const std::string& blob) {
    MResourceLibrary library;
    MMemoryStream memory = StreamOf(blob);
    const std::string failure = FailureOf([&] { library.Load(memory); });
    EXPECT_EQ(library.GetRoot().GetSubItemCount() > 0, failure == "none");
    MMemoryStream source = StreamOf(blob);
    MDispatchStream other(&source);
    EXPECT_EQ(FailureOf([&] { library.Load(other); }), failure);
    const MScratch scratch;
    const MString path = scratch.WriteFile("blob", blob);
    EXPECT_EQ(FailureOf([&] { library.LoadFile(path); }), failure);
    return failure;
}

std::string LoadFailure(const std::string& attributes, const std::string& data) {
    return LoadFailure(MakeBlob("<m><resources><resource " + attributes + "/></resources></m>", data));
}

const std::string Content = std::string(9000, 'x') + "end";

/// An item as it stands, a compressed one, one without bytes, and an element that is none.
std::string MakeSoundBlob(int32_t reserved = 0) {
    const std::string packed = Deflate(Content);
    return MakeBlob(
        "<mstyle name=\"\xC3\xA9\"><resources><resourceicon10_left id=\"icon10_left\" offset=\"0\" "
        "size=\"5\" hotx=\"3\"/><other/><resourcebig id=\"big\" offset=\"5\" size=\"" +
            std::to_string(packed.size()) +
            "\" compressed=\"1\"/><resourcenone id=\"none\" offset=\"5\" size=\"0\"/></resources>"
            "</mstyle>",
        "plain" + packed, reserved);
}

void ExpectSound(MResourceLibrary& library) {
    ASSERT_EQ(library.GetResourceCount(), 3);
    EXPECT_EQ(library.GetRoot().GetAttribute("name"), MDecodeUTF8Exact("\xC3\xA9"));
    MResource& plain = library.GetResource("ICON10_LEFT");
    EXPECT_EQ(Text(plain.GetId()), "icon10_left");
    EXPECT_EQ(plain.GetItem().GetInt32Attribute("hotx"), 3);
    for (int32_t i = 0; i < 2; ++i) {
        EXPECT_EQ(ReadSome(plain.Open(), 4), "plai");
        EXPECT_EQ(ReadSome(plain.OpenMemory(), 99), "plain");
        EXPECT_EQ(ReadSome(library.GetResource("big").Open(), Content.size()), Content);
        EXPECT_EQ(ReadSome(library.GetResource("none").Open(), 9), "");
    }
}

}  // namespace

TEST(MResourceLibrary, LoadsFromMemoryWithoutCopying) {
    const std::string blob = "in front" + MakeSoundBlob(0x12345678);
    MMemoryStream stream = StreamOf(blob);
    stream.Seek(8, MSeekOrigin::Begin);
    MResourceLibrary library;
    library.Load(stream);
    ExpectSound(library);
    EXPECT_EQ(library.GetResource("icon10_left").OpenMemory().GetPointer(),
              blob.data() + blob.size() - static_cast<size_t>(library.GetDataSize()));
}

TEST(MResourceLibrary, LoadsFromAnyStreamAndSavesWhatItLoaded) {
    std::string saved;
    {
        const std::string blob = MakeSoundBlob();
        MMemoryStream source = StreamOf(blob);
        MDispatchStream other(&source);
        MResourceLibrary library;
        library.Load(other);
        ExpectSound(library);
        EXPECT_TRUE(other.IsEnd());
        MMemoryStream target;
        library.Save(target);
        saved.assign(target.GetBuffer().Get(), static_cast<size_t>(target.GetSize()));
        MFailingStream full(&target, 40);
        EXPECT_EQ(FailureOf([&] { library.Save(full); }), "100: Injected failure.");
    }
    EXPECT_EQ(saved.substr(0, 4), Word(0));
    const MScratch scratch;
    MResourceLibrary library;
    library.LoadFile(scratch.WriteFile("blob", saved));
    ExpectSound(library);
}

TEST(MResourceLibrary, UnknownAndCompressedItemsAreRefused) {
    const std::string blob = MakeSoundBlob();
    MMemoryStream stream = StreamOf(blob);
    MResourceLibrary library;
    library.Load(stream);
    EXPECT_TRUE(library.HasResource("Big"));
    EXPECT_FALSE(library.HasResource("other"));
    EXPECT_EQ(FailureOf([&] { (void)library.GetResource("other"); }),
              "0: Cannot find requested resource (other).");
    EXPECT_EQ(FailureOf([&] { (void)library.GetResource("big").OpenMemory(); }),
              "0: Attempt to attach compressed resource using memory-stream.");
    library.Clear();
    EXPECT_FALSE(library.HasResource("big"));
    EXPECT_EQ(library.GetDataSize(), 0);
}

TEST(MResourceLibrary, ADocumentWithoutItemsGetsAPlaceForThem) {
    const std::string blob = MakeBlob("<style/>", "");
    MMemoryStream stream = StreamOf(blob);
    MResourceLibrary library;
    library.Load(stream);
    EXPECT_EQ(library.GetResourceCount(), 0);
    EXPECT_EQ(library.GetRoot().GetSubItem("resources")->GetSubItemCount(), 0);
}

TEST(MResourceLibrary, ItemsLieInsideTheData) {
    const std::pair<const char*, const char*> cases[] = {
        {"id=\"a\" offset=\"0\" size=\"4\"", "none"},
        {"id=\"a\" offset=\"4\" size=\"0\"", "none"},
        {"id=\"a\" offset=\"0\" size=\"5\"", "format"},
        {"id=\"a\" offset=\"3\" size=\"2\"", "format"},
        {"id=\"a\" offset=\"5\" size=\"0\"", "format"},
        {"id=\"a\" offset=\"-1\" size=\"1\"", "format"},
        {"id=\"a\" offset=\"1\" size=\"-1\"", "format"},
        {"id=\"a\" offset=\"2147483647\" size=\"2147483647\"", "format"},
        {"id=\"a\" offset=\"4294967296\" size=\"1\"", "format"},
        {"id=\"a\" offset=\"9223372036854775807\" size=\"9223372036854775807\"", "format"},
        {"offset=\"0\" size=\"1\"", "0: Could not find required attribute (id)."},
        {"id=\"a\" size=\"1\"", "0: Could not find required attribute (offset)."},
        {"id=\"a\" offset=\"1\"", "0: Could not find required attribute (size)."},
    };
    for (const auto& [attributes, expected] : cases)
        EXPECT_EQ(LoadFailure(attributes, "data"),
                  std::string(expected) == "format" ? InvalidFormat : expected)
            << attributes;
}

TEST(MResourceLibrary, SizesInTheHeadAreNotBelieved) {
    const std::string blob = MakeBlob("<m/>", "data");
    const std::string rest = blob.substr(12);
    const std::string indexSize = blob.substr(4, 4);
    const auto load = [&](const std::string& index, const std::string& data) {
        return LoadFailure(Word(0) + index + data + rest);
    };
    EXPECT_EQ(load(indexSize, Word(4)), "none");
    EXPECT_EQ(load(Word(-1), Word(4)), InvalidFormat);
    EXPECT_EQ(load(indexSize, Word(-1)), InvalidFormat);
    EXPECT_EQ(load(Word(INT32_MIN), Word(INT32_MIN)), InvalidFormat);
    EXPECT_EQ(load(Word(INT32_MAX), Word(INT32_MAX)), InvalidFormat);
    EXPECT_EQ(load(Word(MResourceLibrary::MaximumIndexSize), Word(0)), CutOff);
    EXPECT_EQ(load(indexSize, Word(5)), CutOff);
    EXPECT_EQ(load(indexSize, Word(INT32_MAX)), CutOff);
    EXPECT_EQ(load(Word(0), Word(4)), "0: Source compressed stream has invalid content.");
    for (size_t length = 0; length < blob.size(); ++length)
        EXPECT_EQ(LoadFailure(blob.substr(0, length)), CutOff) << length;
}

TEST(MResourceLibrary, AnIndexHasALimit) {
    const auto makeDocument = [](int32_t more) {
        const std::string around = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<m>x</m>";
        const auto size = static_cast<size_t>(MResourceLibrary::MaximumIndexSize + more) - around.size();
        return "<m>x" + std::string(size, ' ') + "</m>";
    };
    EXPECT_EQ(LoadFailure(MakeBlob(makeDocument(0), "")), "none");
    EXPECT_EQ(LoadFailure(MakeBlob(makeDocument(1), "")), InvalidFormat);
    EXPECT_EQ(LoadFailure(MakeBlob(makeDocument(100 << 20), "")), InvalidFormat);

    MXMLItem root("m");
    MString value;
    value.Append(MChar('x'), MResourceLibrary::MaximumIndexSize);
    root.SetValue(value);
    MResourceLibrary library;
    library.Assign(root, MBuffer());
    MMemoryStream target;
    EXPECT_EQ(FailureOf([&] { library.Save(target); }), "0: The index of the resource library is too large.");
    EXPECT_EQ(target.GetSize(), 0);
}

TEST(MResourceLibrary, ADamagedIndexIsNoticed) {
    const std::string blob = MakeBlob("<m><resources/></m>", "data");
    // The lowest bits, since the highest ones of the last byte before the check sum mean nothing.
    for (size_t i = 12; i < blob.size() - 4; ++i) {
        std::string damaged = blob;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_NE(LoadFailure(damaged), "none") << i;
    }
}
