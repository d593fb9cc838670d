#pragma once

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "install/definition/MSetupSession.h"
#include "setup/console/MTextDialogs.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestModule.h"
#include "tests/support/MTestPayload.h"
#include "tests/support/MTestText.h"
#include "ui/image/MBitmap.h"

/// Says yes or no, and keeps what it was asked and told last.
class MTestDialogs final : public MTextDialogs {
public:
    explicit MTestDialogs(bool answer) : answer(answer) {}
    bool AskYesNo(const MString& text) override {
        question = text;
        return answer;
    }
    MRetryAnswer AskRetry(const MString&) override { return MRetryAnswer::Refuse; }
    void ShowError(const MString& text) override { error = text; }

    bool answer;
    MString question;
    MString error;
};

/// A definition and its payload in memory, with the special folders in a scratch directory.
class SetupTest : public testing::Test {
protected:
    ~SetupTest() noexcept override = default;

    /// Takes the children of the root, and the last pages. `{scratch}` in the text becomes the scratch
    /// directory.
    void Define(std::string children, const std::string& attributes = "",
                const std::string& lastPages = "<onsuccess/><onerror/><onabort/>") {
        const std::string path = Text(scratch.GetPath());
        for (size_t at; (at = children.find("{scratch}")) != std::string::npos;)
            children.replace(at, 9, path);
        bytes = payload.Finish("<install name=\"Test Product\" " + attributes + ">" + children + lastPages +
                               "</install>");
        source.Attach(bytes.data(), static_cast<int32_t>(bytes.size()));
        library.Attach(&source);
    }
    [[nodiscard]] std::string InScratch(const char* name) const { return Text(scratch.Join(name)); }
    /// An `execute` element for a program that is put into the user's data, and writes its name to a log there.
    [[nodiscard]] std::string Execute(const std::string& name, const std::string& attributes = "",
                                      const char* label = "") const {
        const bool isWindows = MPlatform::GetName() == "windows";
        const std::string program = name + (isWindows ? ".bat" : ".run");
        const MString path =
            scratch.WriteFile(MDecodeUTF8Exact("userdata/sub/" + program),
                              (isWindows ? "@echo " : "#!/bin/sh\necho ") + name + ">>log\n");
        MFile::MakeExecutable(path);
        return "<execute wait=\"1\" destination=\"{userdata}\\sub\\" + program + "\" " + attributes + ">" +
               label + "</execute>";
    }
    /// The bytes of a PNG file of one colour; `shade` tells pictures apart.
    static std::string MakePNG(int32_t width, int32_t height, uint8_t shade) {
        MBitmap bitmap;
        bitmap.CreateOpaque(width, height);
        bitmap.ChangeColors([&](MColor) { return MColor::FromRGB(shade, shade, shade); });
        MMemoryStream stream;
        bitmap.SavePNG(stream);
        return MBytesOf(stream);
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MScratch programs;
    MTestModule module{programs.WriteFile("program", "the bytes of a program")};
    MTestPayload payload{7};
    std::string bytes;
    MMemoryStream source;
    MLargeResourceLibrary library;
};
