#include "builder/commands/MUpdateServerCommand.h"

#include "builder/commands/MRunBuilder.h"
#include "builder/definition/MDefinitionText.h"
#include "builder/definition/MSortedFileList.h"
#include "builder/output/MCommandInputs.h"
#include "builder/packing/MEqualContents.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MOutputFile.h"

#include <algorithm>
#include <string_view>

namespace {

// What a name in a request may be: see MUpdateCollection::IsRequestName.
constexpr const char* NamePattern = "^[A-Za-z0-9_-][A-Za-z0-9._-]*$";

template <class Accept>
bool IsEach(const MString& text, Accept accept) {
    for (int32_t i = 0; i < text.GetLength(); ++i)
        if (!accept(text[i])) return false;
    return true;
}

bool IsBase(const MString& base) {
    return base.StartsWith("/") && IsEach(base, [](MChar character) {
               return character.IsAlphanumeric() ||
                      std::u16string_view(u"-_./~").find(character) != std::u16string_view::npos;
           });
}

/// Whether a path can stand between the quotation marks of nginx.
bool IsQuotable(const MString& path) {
    return IsEach(path, [](MChar character) {
        return !character.IsControl() &&
               std::u16string_view(u"\"\\$").find(character) == std::u16string_view::npos;
    });
}

void WriteText(const MString& path, const std::string& text) {
    MOutputFile file(path);
    file.Write(text.data(), static_cast<int32_t>(text.size()));
    file.Commit();
}

}  // namespace

MUpdateServerCommand::MUpdateServerCommand(const MBuilderOptions& options, MBuilderOutput& output)
    : options(options),
      output(output),
      tree(MFile::Normalize(options.output)),
      directory(options.id.IsEmpty() ? tree : MFile::Join(tree, options.id)),
      base(options.base) {
    if (base.IsEmpty()) base = options.id.IsEmpty() ? "/" : "/downloadupdate/";
    if (!base.EndsWith("/")) base += "/";
}

int32_t MUpdateServerCommand::Run() {
    CheckOptions();
    if (!options.key.IsEmpty()) key = MReadSigningKey(options.key);
    MList<MString> passed;
    updates.Read(MFile::Normalize(options.input), problems, passed);
    for (const MString& name : passed)
        output.Complain(MFormat("{0}: passed over, as it is no .dat file", name));
    for (const MString& problem : problems) output.Complain("error: " + problem);
    if (!problems.IsEmpty()) {
        output.Complain(
            MFormat("{0}: errors: {1}. Nothing was written.", options.input, problems.GetCount()));
        return MBuilderExitFailed;
    }
    RefuseOutputAmongInputs();
    WriteUpdates();
    WriteConfiguration();
    WriteIndex();
    output.Tell(MFormat("{0}: {1} updates and packages", options.output,
                        static_cast<int64_t>(updates.GetEntries().size())));
    TellLeftovers();
    return MBuilderExitDone;
}

void MUpdateServerCommand::CheckOptions() {
    if (!options.id.IsEmpty() && !MUpdateCollection::IsRequestName(options.id))
        problems.Add(
            MFormat("The ID \"{0}\" cannot stand in a request. Use letters of English, digits, \"-\", \"_\" "
                    "and \".\", and no \".\" in front.",
                    options.id));
    if (!IsBase(base))
        problems.Add(
            MFormat("The base \"{0}\" is no path of an address. Write one as \"/tamborel/\".", base));
    if (!IsQuotable(tree))
        problems.Add(
            MFormat("The output \"{0}\" has characters that nginx does not take in a path. Choose another "
                    "place.",
                    tree));
}

void MUpdateServerCommand::RefuseOutputAmongInputs() const {
    MCommandInputs inputs;
    for (const MUpdateCollection::Entry& entry : updates.GetEntries()) inputs.Add(entry.path);
    if (!options.key.IsEmpty()) inputs.Add(MFile::Normalize(options.key));
    const auto refuse = [&](const MString& path) {
        for (const char* signature : {"", MSignatureSuffix})
            for (const char* suffix : {"", MOutputFile::UnfinishedSuffix})
                inputs.RefuseOutput(path + signature + suffix);
    };
    for (const MUpdateCollection::Entry& entry : updates.GetEntries()) refuse(GetUpdatePath(entry.fileName));
    refuse(MFile::Join(directory, "index.xml"));
    refuse(MFile::Join(tree, "nginx.conf"));
}

void MUpdateServerCommand::WriteUpdates() const {
    MFile::CreatePath(MFile::Join(directory, "updates"));
    for (const MUpdateCollection::Entry& entry : updates.GetEntries()) {
        const MString place = GetUpdatePath(entry.fileName);
        const MSourceItem source{nullptr, entry.path, entry.size};
        if (!MFile::IsFile(place) || !MHasEqualContent({nullptr, place, MFile::GetFileSize(place)}, source)) {
            MOutputFile file(place);
            source.Open()->CopyAllToInLargePieces(file);
            file.Commit();
        }
        Sign(place);
    }
}

void MUpdateServerCommand::WriteIndex() const {
    const MString path = MFile::Join(directory, "index.xml");
    MXMLItem index;
    updates.MakeIndex(index);
    WriteText(path, MGetDefinitionText(index));
    Sign(path);
}

void MUpdateServerCommand::Sign(const MString& path) const {
    const MString signature = path + MSignatureSuffix;
    if (key)
        MWriteSignature(path, *key);
    else if (MFile::IsFile(signature))
        MFile::Delete(signature);
}

void MUpdateServerCommand::WriteConfiguration() const {
    const bool isShared = !options.id.IsEmpty();
    const MString product = isShared ? "/$arg_name" : "";
    MString text =
        "# Answers update managers. Include this file in a \"server\" block of nginx. \"root\" is where the tree was\n"
        "# written: correct it if the server finds it elsewhere.\n";
    const auto add = [&text](const MString& line) { text += line + "\n"; };
    const auto require = [&](const char* argument) {
        add(MFormat("    if (${0} !~ \"{1}\") {{ return 404; }}", argument, NamePattern));
    };
    add(MFormat("location = {0} {{", base));
    add(MFormat("    root \"{0}\";", tree));
    add("    types { }");
    add("    default_type application/octet-stream;");
    if (isShared) require("arg_name");
    const auto answer = [&](const char* op, const char* file) {
        add(MFormat("    if ($arg_op = {0}) {{ rewrite ^ {1}{2} break; }}", op, product, file));
    };
    answer("getindex", "/index.xml");
    answer("getindexsignature", "/index.xml.sig");
    require("arg_updatename");
    answer("getupdate", "/updates/$arg_updatename.dat");
    answer("getupdatesignature", "/updates/$arg_updatename.dat.sig");
    add("    return 404;");
    add("}");
    WriteText(MFile::Join(tree, "nginx.conf"), MEncodeUTF8Exact(text));
}

void MUpdateServerCommand::TellLeftovers() const {
    for (const MFileListEntry& entry : MGetSortedFileList(MFile::Join(directory, "updates"))) {
        const auto isOffered = [&](const MUpdateCollection::Entry& known) {
            return known.fileName.IsExactly(entry.name) ||
                   (known.fileName + MSignatureSuffix).IsExactly(entry.name);
        };
        if (!std::ranges::any_of(updates.GetEntries(), isOffered))
            output.Tell(MFormat("{0} is no longer offered; delete it when nobody fetches it any more.",
                                GetUpdatePath(entry.name)));
    }
}

MString MUpdateServerCommand::GetUpdatePath(const MString& fileName) const {
    return MFile::Join(MFile::Join(directory, "updates"), fileName);
}
