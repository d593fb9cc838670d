#include "builder/commands/MBuilderCommandLine.h"

#include "builder/commands/MRunBuilder.h"
#include "builder/commands/MUpdateOptions.h"
#include "foundation/text/MUnicode.h"

#include <map>
#include <sstream>
#include <thread>

namespace {

const char* const PackExamples =
    "Examples:\n"
    "  setup-builder pack product.xml --output Product.exe\n"
    "  setup-builder pack product.xml --output Product.run --define VERSION=8.1 --stub build/setup\n"
    "  setup-builder pack product.xml --output setup.dat --form dat --compression zlib --level 6\n"
    "  setup-builder pack product.xml --output setup.multi --form multi --part-size 1G";
const char* const CheckExamples = "Example:\n"
                                  "  setup-builder check product.xml --define VERSION=8.1";
const char* const InspectExamples = "Examples:\n"
                                    "  setup-builder inspect Product.exe\n"
                                    "  setup-builder inspect setup.dat --xml > definition.xml";
const char* const VerifyExamples = "Example:\n"
                                   "  setup-builder verify Product.exe && echo sound";
const char* const ExtractExamples = "Example:\n"
                                    "  setup-builder extract Product.exe --output unpacked\n"
                                    "  setup-builder pack unpacked/definition.xml --output Again.exe";
const char* const BlobExamples = "Examples:\n"
                                 "  setup-builder blob pictures style.xml --output Dark.mstyle\n"
                                 "  setup-builder blob Dark.mstyle";
const char* const DownloadSetExamples =
    "Examples:\n"
    "  setup-builder download-set files --id Product-8.1 --mirror http://one.example/get \\\n"
    "      --mirror http://two.example/pub --output publish --stub setup.exe\n"
    "  setup-builder download-set files --id Product-8.1 --mirror http://one.example/get \\\n"
    "      --part-size 4M --output publish";
const char* const UpdateExamples =
    "Examples:\n"
    "  setup-builder update Tamborel-8.0.exe Tamborel-8.1.exe --output Tamborel-8.1.dat\n"
    "  setup-builder update 8.0/product.xml 8.1/product.xml --define VERSION=8.1 --define-old VERSION=8.0 \\\n"
    "      --output Tamborel-8.1-update.exe --stub setup.exe --name \"Tamborel 8.1\"";
const char* const PackageExamples =
    "Example:\n"
    "  setup-builder package Tamborel-8.0.exe piano/product.xml --output Grand-Piano.dat \\\n"
    "      --name \"Grand piano\" --description \"88 keys, 12 velocities.\"";
const char* const UpdateServerExamples =
    "Examples:\n"
    "  setup-builder update-server updates --output /srv/www/tamborel --base /tamborel/\n"
    "  setup-builder update-server updates --output /srv/www/updates --id Tamborel8";
const char* const SignExamples =
    "Examples:\n"
    "  setup-builder sign --key private.pem updates/Tamborel-8.1.dat tree/index.xml\n"
    "  openssl dgst -sha256 -verify public.pem -signature index.xml.sig index.xml";
const char* const Overview = "Run \"setup-builder COMMAND --help\" for a command's options and examples.\n"
                             "Exit codes: 0 done, 1 failed or problems found, 2 wrong command line.";

const std::map<std::string, int64_t> SizeUnits = {{"K", 1 << 10}, {"M", 1 << 20}, {"G", 1 << 30}};

std::string CheckPartSize(const std::string& bytes) {
    const int64_t size = std::strtoll(bytes.c_str(), nullptr, 10);
    if (size >= MBuilderOptions::MinimumPartSize) return "";
    return bytes + " bytes are too small for a part; the least is 64K";
}

std::string CheckDownloadPartSize(const std::string& bytes) {
    const int64_t size = std::strtoll(bytes.c_str(), nullptr, 10);
    if (size < MBuilderOptions::MinimumDownloadPartSize)
        return bytes + " bytes are too small for a part; the least is 1K";
    if (size > MBuilderOptions::MaximumDownloadPartSize)
        return bytes + " bytes are too large for a part, which is held in memory; the most is 256M";
    return "";
}

std::string CheckNotEmpty(const std::string& text) {
    return text.empty() ? "the name is empty" : "";
}

int32_t GetThreadCount(int32_t wanted) {
    const auto cores = static_cast<int32_t>(std::thread::hardware_concurrency());
    return std::clamp(wanted > 0 ? wanted : cores, 1, MBuilderOptions::MaximumThreads);
}

MPayloadForm GetForm(const std::string& name) {
    if (name == "dat") return MPayloadForm::Data;
    return name == "multi" ? MPayloadForm::FileSet : MPayloadForm::Executable;
}

MCompression GetCompression(const std::string& name) {
    if (name == "zlib") return MCompression::ZLib;
    return name == "none" ? MCompression::None : MCompression::Bzip2;
}

class Parser {
public:
    Parser() : app("Makes self-extracting installers, and looks into them.", "setup-builder") {
        app.require_subcommand(1);
        app.footer(Overview);
        AddPack();
        AddCheck();
        AddInspect();
        AddVerify();
        AddExtract();
        AddBlob();
        AddDownloadSet();
        MAddUpdateOptions(AddCommand(MBuilderCommand::Update, "update",
                                     "Makes the update between two versions of a product", UpdateExamples),
                          raw);
        MAddPackageOptions(AddCommand(MBuilderCommand::Package, "package",
                                      "Makes a package that adds to a product", PackageExamples),
                           raw);
        MAddUpdateServerOptions(AddCommand(MBuilderCommand::UpdateServer, "update-server",
                                           "Writes what a web server offers updates and packages with",
                                           UpdateServerExamples),
                                raw);
        MAddSignOptions(AddCommand(MBuilderCommand::Sign, "sign",
                                   "Writes signatures of files, FILE.sig beside each", SignExamples),
                        raw);
    }

    void Parse(const MList<MString>& arguments) {
        // The library wants them from last to first.
        std::vector<std::string> words;
        for (int32_t i = arguments.GetCount() - 1; i >= 0; --i)
            words.push_back(MEncodeUTF8Exact(arguments[i]));
        app.parse(std::move(words));
        RequireForm("--stub", "exe");
        RequireForm("--part-size", "multi");
    }

    /// Writes the help or the complaint that an exception stands for.
    int32_t Explain(const CLI::ParseError& error, MBuilderOutput& output) {
        std::ostringstream help;
        std::ostringstream complaint;
        const bool isHelp = app.exit(error, help, complaint) == 0;
        if (isHelp)
            output.Tell(ToText(help.str()));
        else
            output.Complain(ToText(complaint.str()));
        return isHelp ? MBuilderExitDone : MBuilderExitWrongUsage;
    }

    [[nodiscard]] MBuilderOptions GetOptions() const {
        MBuilderOptions options;
        options.command = commands.at(app.get_subcommands().front());
        options.input = MDecodeUTF8Exact(raw.input);
        options.description = MDecodeUTF8Exact(raw.description);
        options.output = MDecodeUTF8Exact(raw.output);
        options.stub = MDecodeUTF8Exact(raw.stub);
        options.form = GetForm(raw.form);
        const bool isDownload = options.command == MBuilderCommand::DownloadSet;
        options.partSize = isDownload ? raw.downloadPartSize : raw.partSize;
        options.compression = GetCompression(raw.compression);
        options.level = raw.level;
        options.threads = GetThreadCount(raw.threads);
        for (const std::string& define : raw.defines) options.defines.Add(MDecodeUTF8Exact(define));
        options.showsXML = raw.showsXML;
        options.id = MDecodeUTF8Exact(raw.id);
        for (const std::string& mirror : raw.mirrors) options.mirrors.Add(MDecodeUTF8Exact(mirror));
        for (const std::string& define : raw.olderDefines) options.olderDefines.Add(MDecodeUTF8Exact(define));
        options.newer = MDecodeUTF8Exact(raw.newer);
        options.offer = {MDecodeUTF8Exact(raw.name),    MDecodeUTF8Exact(raw.offerDescription),
                         MDecodeUTF8Exact(raw.time),    MDecodeUTF8Exact(raw.showInfo),
                         MDecodeUTF8Exact(raw.execute), raw.restarts};
        options.base = MDecodeUTF8Exact(raw.base);
        options.key = MDecodeUTF8Exact(raw.key);
        for (const std::string& file : raw.files) options.files.Add(MDecodeUTF8Exact(file));
        return options;
    }

private:
    static MString ToText(std::string text) {
        while (!text.empty() && text.back() == '\n') text.pop_back();
        return MDecodeUTF8Exact(text);
    }

    CLI::App& AddCommand(MBuilderCommand command, const char* name, const char* description,
                         const char* examples) {
        CLI::App* added = app.add_subcommand(name, description);
        added->footer(examples);
        commands[added] = command;
        return *added;
    }

    void RequireForm(const char* option, const std::string& form) const {
        if (app.get_subcommand("pack")->count(option) > 0 && raw.form != form)
            throw CLI::ValidationError(option, "belongs to --form " + form + ", and the form is " + raw.form);
    }

    void AddInput(CLI::App& command, const char* name, const char* description) {
        command.add_option(name, raw.input, description)->required()->option_text("REQUIRED");
    }

    void AddPack() {
        CLI::App& pack =
            AddCommand(MBuilderCommand::Pack, "pack", "Makes an installer of a definition", PackExamples);
        AddInput(pack, "DEFINITION", "The install definition, an XML file");
        pack.add_option("--output", raw.output, "The file to write")->required()->type_name("FILE");
        pack.add_option("--stub", raw.stub, "The setup program; the one beside this tool if it is not given")
            ->type_name("PROGRAM");
        pack.add_option(
                "--form", raw.form,
                "exe: one executable; dat: a data file with its .md5; multi: parts, and the index that "
                "names them")
            ->check(CLI::IsMember({"exe", "dat", "multi"}))
            ->option_text("exe|dat|multi");
        pack.add_option(
                "--part-size", raw.partSize,
                "The most that a part of --form multi may have, at least 64K; 100M if it is not given")
            ->transform(CLI::AsNumberWithUnit(SizeUnits))
            ->check(CheckPartSize)
            ->option_text("BYTES or N[K|M|G]");
        MAddCompressionOptions(pack, raw);
        MAddDefines(pack, "--define", "NAME=TEXT fills {{NAME}} in the definition", raw.defines);
    }

    void AddCheck() {
        CLI::App& check =
            AddCommand(MBuilderCommand::Check, "check",
                       "Tells all that is wrong with a definition, an update or an index", CheckExamples);
        AddInput(check, "FILE", "An install definition, an update, or the index of an update server");
        MAddDefines(check, "--define", "NAME=TEXT fills {{NAME}} in the definition", raw.defines);
    }

    void AddInspect() {
        CLI::App& inspect = AddCommand(MBuilderCommand::Inspect, "inspect",
                                       "Shows what an installer or an update holds", InspectExamples);
        AddInput(inspect, "FILE", "An installer, a setup.dat, a setup.multi or an update");
        inspect.add_flag("--xml", raw.showsXML, "Print the definition as it is stored, and nothing else");
    }

    void AddVerify() {
        CLI::App& verify = AddCommand(MBuilderCommand::Verify, "verify",
                                      "Reads every item of an installer to its end", VerifyExamples);
        AddInput(verify, "FILE",
                 "An installer, a setup.dat, a setup.multi or an update; an .md5 and parts are tested too");
    }

    void AddExtract() {
        CLI::App& extract = AddCommand(MBuilderCommand::Extract, "extract",
                                       "Unpacks an installer without installing", ExtractExamples);
        AddInput(extract, "FILE", "An installer, a setup.dat, a setup.multi or an update");
        extract.add_option("--output", raw.output, "The directory to write; new or empty")
            ->required()
            ->type_name("DIR");
    }

    void AddBlob() {
        CLI::App& blob = AddCommand(MBuilderCommand::Blob, "blob",
                                    "Packs a folder into a resource blob, or lists one", BlobExamples);
        AddInput(blob, "INPUT", "The folder to pack, or the blob to list");
        CLI::Option* description =
            blob.add_option("DESCRIPTION", raw.description, "The XML file that the blob's items belong to")
                ->check(CheckNotEmpty);
        CLI::Option* output = blob.add_option("--output", raw.output, "The blob to write")->type_name("FILE");
        description->needs(output);
        output->needs(description);
    }

    void AddDownloadSet() {
        CLI::App& set =
            AddCommand(MBuilderCommand::DownloadSet, "download-set",
                       "Writes what to publish so that users can download a directory", DownloadSetExamples);
        AddInput(set, "DIRECTORY", "The directory whose files users are to get");
        set.add_option("--id", raw.id, "The name of the set, and of its directory on every mirror")
            ->required()
            ->type_name("ID");
        set.add_option(
               "--mirror", raw.mirrors,
               "The address, by http, of a directory that is to hold the set; may be given several times")
            ->required()
            ->take_all()
            ->expected(1)
            ->type_name("URL");
        set.add_option("--part-size", raw.downloadPartSize,
                       "The most that a part may have, 1K to 256M; 1M if it is not given")
            ->transform(CLI::AsNumberWithUnit(SizeUnits))
            ->check(CheckDownloadPartSize)
            ->option_text("BYTES or N[K|M|G]");
        set.add_option("--output", raw.output, "The directory to write; new or empty")
            ->required()
            ->check(CheckNotEmpty)
            ->type_name("DIR");
        set.add_option("--stub", raw.stub,
                       "The setup program that is to start the download; without it a setup.dat is written")
            ->check(CheckNotEmpty)
            ->type_name("PROGRAM");
    }

    MRawOptions raw;
    CLI::App app;
    std::map<const CLI::App*, MBuilderCommand> commands;
};

}  // namespace

std::optional<MBuilderOptions> MBuilderCommandLine::Parse(const MList<MString>& arguments,
                                                          MBuilderOutput& output, int32_t& exitCode) {
    Parser parser;
    try {
        parser.Parse(arguments);
        return parser.GetOptions();
    } catch (const CLI::ParseError& error) {
        exitCode = parser.Explain(error, output);
        return std::nullopt;
    }
}
