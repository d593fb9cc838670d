#include "streams/resources/MResourceLibrary.h"

#include "streams/basic/MStdFileStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

const std::string InvalidFormat = "100: Invalid resource library format.";
const std::string CutOff = "100: Could not read required data from stream.";

std::string MakeBlob(const std::string& document, const std::string& data, int32_t reserved = 0) {
    const std::string index = MDeflate("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" + document);
    return MWordOf(reserved) + MWordOf(static_cast<int64_t>(index.size())) +
           MWordOf(static_cast<int64_t>(data.size())) + index + data;
}

/// How loading fails, which has to be the same from memory and from another stream.
std::string LoadFailure(const std::string& blob) {
    MResourceLibrary library;
    MMemoryStream memory = MStreamOf(blob);
    const std::string failure = FailureOf([&] { library.Load(memory); });
    EXPECT_EQ(library.GetRoot().GetSubItemCount() > 0, failure == "none");
    MMemoryStream source = MStreamOf(blob);
    MBreakingStream other(&source);
    EXPECT_EQ(FailureOf([&] { library.Load(other); }), failure);
    return failure;
}

const std::string Content = std::string(9000, 'x') + "end";

/// An item as it stands, a compressed one, one without bytes, and an element that is none.
std::string MakeSoundBlob(int32_t reserved = 0) {
    const std::string packed = MDeflate(Content);
    return MakeBlob("<mstyle name=\"\u00E9\"><resources><resourceicon10_left id=\"icon10_left\" offset=\"0\" "
                    "size=\"5\" hotx=\"3\"/><other/><resourcebig id=\"big\" offset=\"5\" size=\"" +
                        std::to_string(packed.size()) +
                        "\" compressed=\"1\"/><resourcenone id=\"none\" offset=\"5\" size=\"0\"/></resources>"
                        "</mstyle>",
                    "plain" + packed, reserved);
}

void ExpectSound(MResourceLibrary& library) {
    ASSERT_EQ(library.GetResourceCount(), 3);
    EXPECT_EQ(library.GetRoot().GetAttribute("name"), Wide(u"\u00E9"));
    MResource& plain = library.GetResource("ICON10_LEFT");
    EXPECT_EQ(Text(plain.GetId()), "icon10_left");
    EXPECT_EQ(plain.GetItem().GetInt32Attribute("hotx"), 3);
    for (int32_t i = 0; i < 2; ++i) {
        EXPECT_EQ(plain.Open().ReadInt8(), 'p');
        EXPECT_EQ(MReadAll(plain.OpenMemory()), "plain");
        std::string content(Content.size(), 0);
        library.GetResource("big").Open().ReadRequired(content.data(), static_cast<int32_t>(content.size()));
        EXPECT_EQ(content, Content);
        EXPECT_EQ(MReadAll(library.GetResource("none").Open()), "");
    }
}

}  // namespace

TEST(MResourceLibrary, LoadsFromMemoryWithoutCopyingAndFindsOnlyWhatIsThere) {
    const std::string blob = "in front" + MakeSoundBlob(0x12345678);
    MMemoryStream stream = MStreamOf(blob);
    stream.Seek(8, MSeekOrigin::Begin);
    MResourceLibrary library;
    library.Load(stream);
    ExpectSound(library);
    EXPECT_EQ(library.GetResource("icon10_left").OpenMemory().GetPointer(),
              blob.data() + blob.size() - static_cast<size_t>(library.GetDataSize()));
    EXPECT_TRUE(library.HasResource("Big"));
    EXPECT_EQ(FailureOf([&] { (void)library.GetResource("other"); }),
              "0: Cannot find requested resource (other).");
    EXPECT_EQ(FailureOf([&] { (void)library.GetResource("big").OpenMemory(); }),
              "0: Attempt to attach compressed resource using memory-stream.");
    library.Clear();
    EXPECT_FALSE(library.HasResource("big"));
    EXPECT_EQ(library.GetDataSize(), 0);
}

TEST(MResourceLibrary, LoadsFromAnyStreamAndSavesWhatItLoaded) {
    const MScratch scratch;
    MMemoryStream saved;
    {
        MStdFileStream file;
        file.Open(scratch.WriteFile("blob", MakeSoundBlob()), MOpenRead);
        MResourceLibrary library;
        library.Load(file);
        ExpectSound(library);
        library.Save(saved);
    }
    MResourceLibrary library;
    library.LoadFile(scratch.WriteFile("saved", MBytesOf(saved)));
    ExpectSound(library);
    // A document without items gets a place for them.
    library.LoadFile(scratch.WriteFile("empty", MakeBlob("<style/>", "")));
    EXPECT_EQ(library.GetResourceCount(), 0);
    EXPECT_EQ(library.GetRoot().GetSubItem("resources")->GetSubItemCount(), 0);
}

TEST(MResourceLibrary, ItemsLieInsideTheData) {
    const std::pair<const char*, std::string> cases[] = {
        {"id=\"a\" offset=\"0\" size=\"4\"", "none"},
        {"id=\"a\" offset=\"4\" size=\"0\"", "none"},
        {"id=\"a\" offset=\"3\" size=\"2\"", InvalidFormat},
        {"id=\"a\" offset=\"5\" size=\"0\"", InvalidFormat},
        {"id=\"a\" offset=\"-1\" size=\"1\"", InvalidFormat},
        {"id=\"a\" offset=\"1\" size=\"-1\"", InvalidFormat},
        {"id=\"a\" offset=\"4294967296\" size=\"1\"", InvalidFormat},
        {"id=\"a\" offset=\"9223372036854775807\" size=\"9223372036854775807\"", InvalidFormat},
        {"offset=\"0\" size=\"1\"", "0: Could not find required attribute (id)."},
        {"id=\"a\" size=\"1\"", "0: Could not find required attribute (offset)."},
        {"id=\"a\" offset=\"1\"", "0: Could not find required attribute (size)."},
    };
    for (const auto& [attributes, expected] : cases)
        EXPECT_EQ(LoadFailure(MakeBlob(
                      "<m><resources><resource " + std::string(attributes) + "/></resources></m>", "data")),
                  expected)
            << attributes;
}

TEST(MResourceLibrary, SizesInTheHeadAreNotBelieved) {
    const std::string blob = MakeBlob("<m/>", "data");
    const int64_t indexSize = static_cast<int64_t>(blob.size()) - 16;
    const struct {
        int64_t index, data;
        std::string failure;
    } cases[] = {
        {indexSize, 4, "none"},
        {-1, 4, InvalidFormat},
        {indexSize, -1, InvalidFormat},
        {INT32_MAX, INT32_MAX, InvalidFormat},
        {MResourceLibrary::MaximumIndexSize, 0, CutOff},
        {indexSize, 5, CutOff},
        {indexSize, INT32_MAX, CutOff},
        {0, 4, "0: Source compressed stream has invalid content."},
    };
    for (const auto& [index, data, failure] : cases)
        EXPECT_EQ(LoadFailure(MWordOf(0) + MWordOf(index) + MWordOf(data) + blob.substr(12)), failure);
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

    MXMLItem root("m");
    root.SetValue(Heap(std::string(MResourceLibrary::MaximumIndexSize, 'x').c_str()));
    MResourceLibrary library;
    library.Assign(root, MBuffer());
    MMemoryStream target;
    EXPECT_EQ(FailureOf([&] { library.Save(target); }), "0: The index of the resource library is too large.");
    EXPECT_EQ(target.GetSize(), 0);
}
