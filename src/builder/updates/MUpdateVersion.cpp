#include "builder/updates/MUpdateVersion.h"

#include "builder/checks/MDefinitionCheck.h"
#include "builder/reports/MFileSet.h"
#include "builder/reports/MPayloadItem.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "install/definition/MItemNames.h"

MUpdateVersion::MUpdateVersion(const MString& path, const MList<MString>& defines)
    : path(path), sources(definition, problems) {
    if (MIsXMLFile(path) && !MOpenFileSet(path))
        ReadDefinition(defines);
    else
        ReadPayload();
}

void MUpdateVersion::ReadDefinition(const MList<MString>& defines) {
    MPlaceholders placeholders;
    for (const MString& define : defines) placeholders.Define(define);
    MPrepareDefinition(path, placeholders, definition, sources, problems);
    for (const MSourceItem& item : sources.GetItems()) contents.emplace(item.element, item);
}

void MUpdateVersion::ReadPayload() {
    payload = std::make_unique<MPayloadFile>(path);
    MLargeResourceLibrary& library = payload->GetLibrary();
    if (library.FindSubItem("updateinformation"))
        MRaise(MExceptionGeneral, "\"{0}\" is an update. Name the installers that it is made from.", path);
    MCheckItemNames(library);
    for (const MPayloadItem& item : MCollectPayloadItems(library)) {
        const int64_t size = item.element->GetInt64Attribute("filesize");
        contents.emplace(item.element,
                         MSourceItem{item.element, path + ": " + item.path, size, &library, item.element});
    }
}

bool MUpdateVersion::Check(MBuilderOutput& output) const {
    problems.Print(path, output);
    return problems.GetErrorCount() == 0;
}

const MXMLItem& MUpdateVersion::GetRoot() const {
    return payload ? payload->GetLibrary() : definition.GetRoot();
}

const MSourceItem* MUpdateVersion::FindContent(const MXMLItem& file) const {
    const auto found = contents.find(&file);
    return found == contents.end() ? nullptr : &found->second;
}

void MUpdateVersion::AddInputs(MCommandInputs& inputs) const {
    inputs.Add(MFile::Normalize(path));
    for (const MSourceItem& item : sources.GetItems()) inputs.Add(item.path);
    const MMultiFileStream* set = payload ? payload->GetFileSet() : nullptr;
    for (int32_t i = 0; set && i < set->GetPartCount(); ++i)
        inputs.Add(MFile::Join(MFile::GetDirectory(payload->GetPath()), set->GetPartFileName(i)));
}
