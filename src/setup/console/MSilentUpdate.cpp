#include "setup/console/MSilentUpdate.h"

#include "foundation/base/MRefusal.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/text/MByteSizeText.h"
#include "foundation/text/MJSONWriter.h"
#include "foundation/text/MStringFormatter.h"
#include "install/run/MInstalledProgram.h"
#include "setup/console/MConsoleView.h"
#include "setup/console/MTextDialogs.h"
#include "setup/console/MUnattendedOptions.h"
#include "streams/basic/MConsole.h"
#include "ui/stml/MSTMLPlainText.h"

#include <optional>

namespace {

bool IsChosen(const MList<int32_t>& chosen, int32_t index) {
    for (const int32_t other : chosen)
        if (other == index) return true;
    return false;
}

/// Keeps standard output for a document.
class DialogsBesideDocument final : public MTextDialogs {
public:
    explicit DialogsBesideDocument(MUserDialogs& dialogs) : dialogs(dialogs) {}

    bool AskYesNo(const MString& question) override { return dialogs.AskYesNo(question); }
    MRetryAnswer AskRetry(const MString& question) override { return dialogs.AskRetry(question); }
    void ShowInformation(const MString& markup) override { ShowError(MSTMLPlainText::Of(markup)); }

private:
    MUserDialogs& dialogs;
};

}  // namespace

/// What a run has to tell, as lines at once or as a document at its end.
class MSilentUpdate::Report {
public:
    Report(const MSilentUpdate& words, const MXMLItem& state, MUserDialogs& dialogs)
        : isJSON(words.isJSON), besideDocument(dialogs) {
        views.dialogs = isJSON ? &besideDocument : &dialogs;
        json.BeginObject();
        json.Add("product", state.GetAttribute("name"));
        json.Add("time", state.GetAttribute("time"));
        if (isJSON) return;
        views.fileText = &console;
        views.totalBar = &console;
    }

    void AddOffers(const char* name, const MString& title, const MUpdateOffers::List& offers,
                   const MList<int32_t>* chosen) {
        if (!isJSON && !offers.IsEmpty()) console.SetText(title);
        json.BeginList(name);
        for (int32_t i = 0; i < offers.GetCount(); ++i)
            AddOffer(*offers[i], chosen ? std::optional(IsChosen(*chosen, i)) : std::nullopt);
        json.EndList();
    }
    void Say(const char* text) {
        if (!isJSON) console.SetText(MTranslate(text));
    }
    MExitCode EndInstalled(int32_t installedCount, const MInstallProcessor& processor) {
        if (installedCount > 0) Say("Updates has been successfully installed.");
        return End(installedCount, processor.GetUnmerged().IsEmpty() ? MExitDone : MExitIncomplete);
    }
    MExitCode End(int32_t installedCount, MExitCode exitCode) {
        json.Add("installed", installedCount);
        json.EndObject();
        if (isJSON) (void)MWriteConsoleText(stdout, json.GetText() + "\n");
        return exitCode;
    }

    MInstallViews views;

private:
    void AddOffer(const MXMLItem& offer, std::optional<bool> isSelected) {
        const MString name = offer.GetAttribute("name");
        const int64_t size = offer.GetInt64Attribute("size", 0);
        json.BeginObject();
        json.Add("name", name);
        json.Add("time", offer.GetAttribute("time"));
        json.Add("size", size);
        json.Add("description", MSTMLPlainText::Of(offer.GetValue()));
        if (isSelected) json.Add("selected", *isSelected);
        json.EndObject();
        if (!isJSON)
            console.SetText(
                MFormat("    {0} ({1}, {2})", name, offer.GetAttribute("time"), MByteSizeText(size)));
    }

    const bool isJSON;
    DialogsBesideDocument besideDocument;
    MConsoleView console;
    MJSONWriter json;
};

MSilentUpdate::MSilentUpdate(Kind kind, const MList<MString>& words, const MString& startDirectory) {
    for (const MString& word : words) ReadWord(kind, word, startDirectory);
}

void MSilentUpdate::ReadWord(Kind kind, const MString& word, const MString& startDirectory) {
    const int32_t sign = word.FindChar('=');
    const MString name = sign < 0 ? word : word.Substring(0, sign);
    const MString value = sign < 0 ? MString() : word.Substring(sign + 1);
    const auto isYes = [&](const char* yes, const char* no, const char* advice) {
        if (!(value == yes) && !(value == no)) MRefuseWord(word, advice);
        return value == yes;
    };
    if (name == "format") {
        isJSON = isYes("json", "text", "write format=text or format=json");
    } else if (kind == Kind::FromServer && word == "check-only") {
        isCheckOnly = true;
    } else if (kind == Kind::FromServer && name == "packages") {
        if (value.IsEmpty()) MRefuseWord(word, "write packages=all, packages=none or packages=NAME,NAME");
        wantsAllPackages = value == "all";
        if (!wantsAllPackages && !(value == "none")) packages = value.Split(',');
    } else if (kind == Kind::Local && name == "reinstall") {
        reinstalls = isYes("yes", "no", "write reinstall=yes or reinstall=no");
    } else if (kind == Kind::Local && name == "directory") {
        if (value.IsEmpty()) MRefuseWord(word, "write directory=PATH");
        const MString path = MPlatform::TakePathText(value);
        directory = MFile::Normalize(MFile::IsAbsolute(path) ? path : MFile::Join(startDirectory, path));
    } else if (!(kind == Kind::FromServer && word == "update")) {
        MRefuseWord(word, kind == Kind::FromServer
                              ? "a silent update knows packages=, check-only and format="
                              : "a silent update knows directory=, reinstall= and format=");
    }
}

MList<int32_t> MSilentUpdate::FindPackages(const MUpdateOffers::List& offered) const {
    MList<int32_t> chosen;
    MString names;
    for (int32_t i = 0; i < offered.GetCount(); ++i) {
        if (wantsAllPackages) chosen.Add(i);
        names += (i > 0 ? ", " : "") + offered[i]->GetAttribute("name");
    }
    for (const MString& package : packages) {
        int32_t found = -1;
        for (int32_t i = 0; i < offered.GetCount(); ++i)
            if (offered[i]->GetAttribute("name") == package) found = i;
        if (found < 0)
            MRefuse(
                "There is no package \"{0}\" to be installed. Nothing has been changed. These are there: {1}",
                package, names.IsEmpty() ? MTranslate("none") : names);
        if (!IsChosen(chosen, found)) chosen.Add(found);
    }
    return chosen;
}

MExitCode MSilentUpdate::Run(const MString& installation, MUserDialogs& dialogs) const {
    MUpdateSession session(installation);
    session.Query();
    const MUpdateOffers& offers = session.GetOffers();
    const MList<int32_t> chosen = FindPackages(offers.GetPackages());
    session.SelectPackages(chosen);
    Report report(*this, session.GetRun().GetState(), dialogs);
    report.AddOffers("updates", MTranslate("Available updates"), offers.GetUpdates(), nullptr);
    report.AddOffers("packages", MTranslate("Available packages"), offers.GetPackages(), &chosen);
    if (offers.IsEmpty()) report.Say("No updates or packages are available at the moment.");
    if (isCheckOnly) return report.End(0, offers.IsEmpty() ? MExitDone : MExitOffered);
    const int32_t installed = session.Perform(report.views, [] { return false; });
    return report.EndInstalled(installed, session.GetRun().GetProcessor());
}

MExitCode MSilentUpdate::RunLocal(MLargeResourceLibrary& package, MUserDialogs& dialogs) const {
    const MXMLItem& offer = *package.GetSubItem("updateinformation");
    const MString name = offer.GetAttribute("installationname", offer.GetAttribute("name"));
    const MString installation = directory.IsEmpty() ? MFile::GetSoftwareInstallationPath(name) : directory;
    if (!MFile::IsInstallation(installation))
        MRefuse("There is no installation in \"{0}\". Write directory=PATH with the folder of setup.state.",
                installation);
    MUpdateSession session(installation);
    Report report(*this, session.GetRun().GetState(), dialogs);
    if (session.GetRun().IsInstalled(offer) && !reinstalls) {
        report.Say(
            "The update is installed already, or a newer one. To install it again, add the word: reinstall=yes");
        return report.End(0, MExitDone);
    }
    session.InstallLocal(offer, package.GetStream(), report.views);
    MLeaveInstalledProgram(MGetSetupPath(installation));
    return report.EndInstalled(1, session.GetRun().GetProcessor());
}
