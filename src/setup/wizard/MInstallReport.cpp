#include "setup/wizard/MInstallReport.h"

#include "foundation/module/MPlatform.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"

namespace {

MString ShowPath(const MString& path) {
    return MEntities::Escape(MPlatform::GetPathText(path));
}

MString MakeRow(const MString& name, const MString& about) {
    return "<p><b>" + MEntities::Escape(name) + "</b><p>" + about + "<p/>";
}

}  // namespace

MString MReportInstallation(const MInstallRun& run) {
    MString text;
    const auto begin = [&text](const char* title) { text += "<header2>" + MTranslate(title) + "</header2>"; };
    if (!run.GetInstalled().IsEmpty()) begin("Installed");
    for (const MInstalledPart& part : run.GetInstalled())
        text += MakeRow(part.name,
                        ShowPath(part.folder) + " " + MFormat(MTranslate("({0} files)"), part.fileCount));
    if (!run.GetMergedPresets().IsEmpty()) begin("Presets that were merged");
    for (const MMergedPresets& presets : run.GetMergedPresets())
        text += MakeRow(MPlatform::GetPathText(presets.path),
                        MFormat(MTranslate("As it was before: {0}"), ShowPath(presets.backup)));
    if (!run.GetUnmerged().IsEmpty()) begin("Presets that could not be merged and stay as they are");
    for (const MUnmergedPresets& presets : run.GetUnmerged())
        text += MakeRow(MPlatform::GetPathText(presets.path), MEntities::Escape(presets.reason));
    return text;
}

MString MSummarizeInstallation(const MInstallRun& run) {
    if (const int32_t count = run.GetUnmerged().GetCount(); count > 0)
        return "<cred>" +
               MFormat(MTranslate(
                           "New presets could not be merged into {0} of your files, which stay as they are."),
                       count) +
               "</cred>";
    if (const int32_t count = run.GetMergedPresets().GetCount(); count > 0)
        return MFormat(
            MTranslate("{0} of your preset files have new presets; what they held before is kept."), count);
    return {};
}
