#include "builder/downloads/MDownloadSetCheck.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/downloads/MDownloadSetOutput.h"
#include "builder/output/MCommandInputs.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MStringFormatter.h"

#include <string_view>

namespace {

/// Leaves room for the extensions of files that are named after it.
constexpr int32_t MaximumIDLength = 100;

template <class Accept>
bool IsEach(const MString& text, Accept accept) {
    for (int32_t i = 0; i < text.GetLength(); ++i)
        if (!accept(text[i])) return false;
    return true;
}

bool IsIDCharacter(MChar character) {
    return character.IsAlphanumeric() ||
           std::u16string_view(u"-_.").find(character) != std::u16string_view::npos;
}

/// Of those that an URL may have, without what begins a query, a fragment, a user or an IPv6 address.
bool IsURLCharacter(MChar character) {
    return character.IsAlphanumeric() ||
           std::u16string_view(u"-._~!$&'()*+,;=:/%").find(character) != std::u16string_view::npos;
}

bool IsID(const MString& id) {
    return !id.IsEmpty() && id.GetLength() <= MaximumIDLength && id[0] != MChar('.') &&
           IsEach(id, IsIDCharacter);
}

bool IsPort(const MString& text) {
    constexpr int32_t MaximumDigits = 5;
    constexpr int32_t MaximumPort = 65535;
    if (text.GetLength() > MaximumDigits || !IsEach(text, [](MChar digit) { return digit.IsDigit(); }))
        return false;
    const int32_t port = MParseInt32(text);
    return port > 0 && port <= MaximumPort;
}

/// A host's name or IPv4 address, and perhaps a port.
bool IsAuthority(const MString& authority) {
    const int32_t colon = authority.FindChar(MChar(':'));
    const MString host = colon < 0 ? authority : authority.Substring(0, colon);
    return !host.IsEmpty() && IsEach(host, IsIDCharacter) &&
           (colon < 0 || IsPort(authority.Substring(colon + 1)));
}

bool IsHTTPAddress(const MString& mirror) {
    constexpr const char* Scheme = "http://";
    if (!mirror.StartsWith(Scheme) || !IsEach(mirror, IsURLCharacter)) return false;
    const MString rest = mirror.Substring(MString(Scheme).GetLength());
    const int32_t slash = rest.FindChar(MChar('/'));
    return IsAuthority(slash < 0 ? rest : rest.Substring(0, slash));
}

}  // namespace

void MDownloadSetCheck::Run(const MDownloadSetSources& sources) {
    CheckID();
    for (const MString& mirror : options.mirrors) CheckMirror(mirror);
    CheckOutput();
    CheckPartCount(sources);
}

void MDownloadSetCheck::CheckID() {
    if (!IsID(options.id))
        return AddProblem(
            "The ID \"{0}\" cannot name a directory on a web server. Use at most {1} letters of English, "
            "digits, \"-\", \"_\" and \".\", and no \".\" in front.",
            options.id, MaximumIDLength);
    if (const MString fault = MFileNameRules::FindFault(options.id); !fault.IsEmpty())
        return AddProblem("The ID \"{0}\" {1}. Choose another one.", options.id, fault);
    if (options.stub.IsEmpty() && (options.id == "setup.dat" || options.id == "setup.dat.md5"))
        AddProblem("The ID \"{0}\" is the name of a file beside the set. Choose another one.", options.id);
}

void MDownloadSetCheck::CheckMirror(const MString& mirror) {
    if (mirror.StartsWith("https://"))
        return AddProblem(
            "The mirror \"{0}\" cannot be used: the setup program speaks no TLS. Offer the set by http:// as "
            "well, and name that address.",
            mirror);
    if (!IsHTTPAddress(mirror))
        AddProblem(
            "The mirror \"{0}\" is no address of a directory on a web server. Write http://HOST/PATH or "
            "http://HOST:PORT/PATH, with % and two digits for other characters than English has, and "
            "nothing behind the path.",
            mirror);
}

void MDownloadSetCheck::CheckOutput() {
    const MString directory = MFile::Normalize(options.output);
    const MString source = MFile::Normalize(options.input);
    if (MFile::IsDirectory(source) && MIsInside(directory, source))
        return AddProblem("The output \"{0}\" is in the directory to offer. Name another place.", directory);
    if (!MDownloadSetOutput::IsFree(directory, options.id))
        return AddProblem("The output \"{0}\" is not empty. Name a new directory.", directory);
    MCommandInputs inputs;
    inputs.Add(source);
    if (!options.stub.IsEmpty()) inputs.Add(MFile::Normalize(options.stub));
    const MString replaced =
        inputs.FindReplaced(MDownloadSetOutput::GetUnfinishedPath(directory, options.id));
    if (!replaced.IsEmpty())
        AddProblem("\"{0}\" lies where the output is begun. Put it to another place.", replaced);
}

void MDownloadSetCheck::CheckPartCount(const MDownloadSetSources& sources) {
    const int64_t count = sources.CountParts(options.partSize);
    if (count > MaximumPartCount)
        AddProblem(
            "There would be {0} parts of at most {1} bytes, and a downloader takes {2}. Choose a larger "
            "part size, or pack many small files into one.",
            count, options.partSize, MaximumPartCount);
}

template <class... Values>
void MDownloadSetCheck::AddProblem(const char* text, const Values&... values) {
    problems.Add(MFormat(text, values...));
}
