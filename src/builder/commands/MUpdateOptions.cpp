#include "builder/commands/MUpdateOptions.h"

namespace {

void AddVersions(CLI::App& command, const char* older, const char* newer, MRawOptions& raw) {
    command
        .add_option(older, raw.input, "What users have: its installer, setup.dat, setup.multi or definition")
        ->required()
        ->option_text("REQUIRED");
    command.add_option(newer, raw.newer, "What they are to have, likewise")
        ->required()
        ->option_text("REQUIRED");
}

void AddOffer(CLI::App& command, MRawOptions& raw) {
    command.add_option("--output", raw.output, "The file to write")->required()->type_name("FILE");
    command
        .add_option(
            "--stub", raw.stub,
            "The setup program, for a file that users start themselves; without it the file is one for "
            "an update server")
        ->type_name("PROGRAM");
    command
        .add_option("--name", raw.name,
                    "What users see in the list; the name of the newer version without it")
        ->type_name("TEXT");
    command.add_option("--description", raw.offerDescription, "What it brings, shown below the name")
        ->type_name("TEXT");
    command
        .add_option("--time", raw.time,
                    "\"YYYY-MM-DD hh:mm:ss\", by which it is known; that of the newer version without it")
        ->type_name("TIME");
    command.add_option("--showinfo", raw.showInfo, "A text to show when it is installed")->type_name("TEXT");
    command
        .add_option("--execute", raw.execute, "A file in the product's directory to run when it is installed")
        ->type_name("NAME");
    command.add_flag("--restart", raw.restarts, "The update manager ends after it");
    MAddDefines(command, "--define", "NAME=TEXT fills {{NAME}} in both definitions", raw.defines);
    MAddDefines(command, "--define-old", "NAME=TEXT, for the older definition alone", raw.olderDefines);
    MAddCompressionOptions(command, raw);
}

}  // namespace

void MAddCompressionOptions(CLI::App& command, MRawOptions& raw) {
    command
        .add_option("--compression", raw.compression, "How the items are stored; bzip2 if it is not given")
        ->check(CLI::IsMember({"bzip2", "zlib", "none"}))
        ->option_text("bzip2|zlib|none");
    command.add_option("--level", raw.level, "1 is fast, 9 is small; 9 if it is not given")
        ->check(CLI::Range(1, 9))
        ->option_text("N");
    command.add_option("--threads", raw.threads, "How many compress at once; all cores if it is not given")
        ->check(CLI::Range(1, MBuilderOptions::MaximumThreads))
        ->option_text("N");
}

void MAddDefines(CLI::App& command, const char* option, const char* description,
                 std::vector<std::string>& defines) {
    command.add_option(option, defines, description)->take_all()->expected(1)->type_name("NAME=TEXT");
}

void MAddUpdateOptions(CLI::App& command, MRawOptions& raw) {
    AddVersions(command, "OLD", "NEW", raw);
    AddOffer(command, raw);
}

void MAddPackageOptions(CLI::App& command, MRawOptions& raw) {
    AddVersions(command, "BASE", "NEW", raw);
    AddOffer(command, raw);
}

void MAddUpdateServerOptions(CLI::App& command, MRawOptions& raw) {
    command
        .add_option("DIRECTORY", raw.input, "The directory with the .dat files of \"update\" and \"package\"")
        ->required()
        ->option_text("REQUIRED");
    command.add_option("--output", raw.output, "The directory to write, or to bring up to date")
        ->required()
        ->type_name("DIR");
    command.add_option("--id", raw.id, "The product's id, for a server that answers for several products")
        ->type_name("ID");
    command.add_option("--key", raw.key, "The private RSA key to sign all by, a PEM file without a password")
        ->type_name("PEM");
    command.add_option("--base", raw.base, "The path behind the host of the address; / if it is not given")
        ->type_name("PATH");
}

void MAddSignOptions(CLI::App& command, MRawOptions& raw) {
    command.add_option("FILES", raw.files, "The files to sign")->required()->option_text("REQUIRED");
    command.add_option("--key", raw.key, "The private RSA key, a PEM file without a password")
        ->required()
        ->type_name("PEM");
}
