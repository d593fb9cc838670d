#include "ui/opengl/MGPUSettings.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MDataFolders.h"
#include "foundation/xml/MXMLItem.h"

namespace {

constexpr const char* FileName = "GPU.xml";
constexpr const char* RootName = "GPU";
constexpr const char* ModeName = "mode";

MString GetPath() {
    return MFile::Join(MDataFolders::GetDataPath_User(MString()), FileName);
}

}  // namespace

MGPUMode MGPUSettings::Load() {
    int32_t mode = 0;
    MGuard("MGPUSettings::Load", [&] {
        MXMLItem document(RootName);
        document.LoadFile(GetPath());
        mode = document.GetInt32Attribute(ModeName, 0);
    });
    const bool isKnown = mode >= 0 && mode <= static_cast<int32_t>(MGPUMode::WithoutFrameBuffer);
    return isKnown ? static_cast<MGPUMode>(mode) : MGPUMode::Off;
}

void MGPUSettings::Save(MGPUMode mode) {
    MGuard("MGPUSettings::Save", [&] {
        MXMLItem document(RootName);
        document.SetAttribute(ModeName, static_cast<int32_t>(mode));
        document.SaveFile(GetPath(), true, "utf-8");
    });
}
