#pragma once

#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestProgram.h"
#include "tests/support/MTestText.h"

#include <chrono>
#include <thread>

/// A desktop that reads and starts link files: the validator of the desktop-file-utils and the launcher of
/// GLib, as whoever may use the programs of a test. The program that opens documents is a recorder.
class MTestDesktop {
public:
    /// Everything lies in `directory`, which is there. With `asOrdinaryUser` it must be open for everybody.
    MTestDesktop(const MString& directory, bool asOrdinaryUser)
        : directory(directory), asOrdinaryUser(asOrdinaryUser) {
        WriteRecorder(MFile::Join(directory, "bin/xdg-open"));
    }

    /// Writes a program that records its working directory and its arguments, each in brackets.
    void WriteRecorder(const MString& path) const {
        const std::string record = Text(MFile::Join(directory, "record"));
        MWriteTestFile(path, "#!/bin/sh\n{ pwd; for word; do printf '[%s]\\n' \"$word\"; done; } >'" +
                                 record + ".part'\nmv '" + record + ".part' '" + record + "'\n");
        MFile::MakeExecutable(path);
    }
    /// What the validator says of a link file; empty if it is valid.
    [[nodiscard]] std::string Validate(const MString& link) const {
        return Run("desktop-file-validate", "--warn-kde", link);
    }
    /// Starts a link file, and gives what the recorder behind it has recorded, a line each.
    [[nodiscard]] std::string Launch(const MString& link) const {
        const MString record = MFile::Join(directory, "record");
        if (MFile::Exists(record)) MFile::Delete(record);
        const std::string failure = Run("gio", "launch", link);
        if (!failure.empty()) return failure;
        // The launcher does not wait for what it starts.
        for (int hundredths = 0; hundredths < 1000 && !MFile::Exists(record); ++hundredths)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return MFile::Exists(record) ? MReadTestFile(record) : "nothing was started";
    }

private:
    [[nodiscard]] std::string Run(const char* program, const char* option, const MString& link) const {
        MList<MString> arguments;
        arguments.Add("PATH=" + MFile::Join(directory, "bin") + ":/usr/bin:/bin");
        for (const char* word : {program, option}) arguments.Add(word);
        arguments.Add(link);
        const MProgramResult result =
            MRunTestProgram("/usr/bin/env", arguments, directory, directory, asOrdinaryUser);
        EXPECT_NE(result.exitCode, 127) << result.errors << "scripts/install-tools installs what is missing";
        return result.output + result.errors + (result.exitCode == 0 ? "" : "failed\n");
    }

    MString directory;
    bool asOrdinaryUser;
};
