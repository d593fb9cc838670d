#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"

#include <cstdio>
#include <libxml/parser.h>
#include <malloc.h>
#include <memory>
#include <string>

namespace {

constexpr int FileCount = 12000;
constexpr int FilesPerDirectory = 100;
constexpr int Rounds = 41;

std::string MakeFile(int index) {
    char element[256];
    std::snprintf(
        element, sizeof element,
        "<file filesize=\"%d\" filestart=\"%lld\" name=\"%05d %s of the factory bank, for stereo "
        "tracks and for buses.preset\" op=\"create\" time=\"2026-01-15 12:%02d:%02d\" update=\"0\"/>",
        index * 7919 % 90000, index * 40961LL, index, index % 3 == 0 ? "Warm room" : "Bright vocal plate",
        index / 60 % 60, index % 60);
    return element;
}

/// A definition as the builder writes it, of about 2 MiB.
std::string MakeDefinition(const char* lineEnd) {
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>";
    text +=
        std::string(lineEnd) + "<install name=\"Product\"><files destination=\"{destination}\">" + lineEnd;
    for (int index = 0; index < FileCount; ++index) {
        if (index % FilesPerDirectory == 0)
            text += "<dir name=\"Bank " + std::to_string(index / FilesPerDirectory) + "\">" + lineEnd;
        text += MakeFile(index) + lineEnd;
        if (index % FilesPerDirectory == FilesPerDirectory - 1) text += std::string("</dir>") + lineEnd;
    }
    return text + "</files></install>" + lineEnd;
}

/// Speeds of making the tree. The memory that it took is given back outside the timing, and to the system, so
/// that each load finds the heap of a program that has just started.
MComparison CompareLoading(const char* lineEnd) {
    const std::string text = MakeDefinition(lineEnd);
    const auto size = static_cast<int32_t>(text.size());
    std::unique_ptr<MXMLItem> ours;
    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> reference(nullptr, xmlFreeDoc);

    const auto freeTrees = [&] {
        ours = std::make_unique<MXMLItem>();
        reference.reset();
        malloc_trim(0);
    };
    const auto load = [&] {
        MMemoryStream stream(text.data(), size);
        ours->Load(stream);
        if (ours->CountSubItems("file") != FileCount) MRaise(MExceptionGeneral, "Our tree is not whole.");
    };
    const auto loadReference = [&] {
        reference.reset(xmlReadMemory(text.data(), size, nullptr, nullptr, 0));
        if (!reference) MRaise(MExceptionGeneral, "The reference did not make a tree.");
    };
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, size / 1e6, {freeTrees, load}, {freeTrees, loadReference});
    comparison.unit = "MB/s";
    return comparison;
}

[[maybe_unused]] const bool areRegistered =
    MRegisterComparison("XML, an element a line", [] { return CompareLoading("\n"); }) &&
    MRegisterComparison("XML, one line", [] { return CompareLoading(""); });

}  // namespace
