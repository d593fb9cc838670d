#include "foundation/module/MModule.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "streams/basic/MStdFileStream.h"

#include <atomic>

namespace {

MModule* instanceModule = nullptr;
MModule* hostModule = nullptr;
std::atomic<bool> processEnding = false;

void* DispatchService(const MString& service, void* argument) {
    return instanceModule ? instanceModule->CallService(service, argument) : nullptr;
}

MString NormalizedDataPath(int32_t folder, const MString& subdirectory) {
    return MFile::Normalize(MFile::Join(MFile::GetSpecialPath(folder), subdirectory));
}

}  // namespace

MModule::MModule() {
    if (!hostModule) hostModule = this;
    MGuard("InitMLibrarySubSystems", [] { MPlatform::StartSubsystems(); });
}

MModule::~MModule() {
    MGuard("MModule::MModule", [] { MPlatform::StopSubsystems(); });
    if (hostModule == this) hostModule = nullptr;
    if (instanceModule == this) instanceModule = nullptr;
}

void MModule::DLLLoaded(MPluginLibrary& library) {
    MGuard("MModule::DLLLoaded", [&] {
        using InitializeFunction = void* (*)(Interface*);
        const auto initialize =
            reinterpret_cast<InitializeFunction>(library.FindFunction("MLibraryDLLInitialize"));
        if (!initialize) return;
        Interface block{DispatchService, GetDataPath_Global(MString())};
        library.initialization = initialize(&block);
    });
}

void MModule::Initialize() {
    MGuard("MModule::Initialize", [this] {
        FilePath = MFile::Normalize(MPlatform::GetModulePath(Instance));
        if (Name.IsEmpty()) Name = MFile::GetBaseName(FilePath);
    });
}

int32_t MModule::Main() {
    return 0;
}

int32_t MModule::PerformMain_() {
    int32_t exitCode = -1;
    const bool returned = MGuard("MModule::PerformMain_", [&] { exitCode = Main(); });
    return returned ? exitCode : -1;
}

MModule* MModule::GetInstance() {
    return instanceModule;
}

void MModule::SetInstance(MModule* module) {
    instanceModule = module;
}

MModule* MModule::GetHost() {
    return hostModule;
}

bool MModule::IsProcessEnding() {
    return processEnding;
}

void MModule::SetProcessEnding(bool ending) {
    processEnding = ending;
}

void MModule::AddService(const MString& name, ServiceFunction function) {
    if (Services.GetCount() >= MaximumServices) MRaise(MExceptionGeneral, "Too many services.");
    Services.Add({name, function});
}

void* MModule::CallService(const MString& name, void* argument) const {
    for (const Service& service : Services)
        if (service.name == name) return service.function(argument);
    return nullptr;
}

MString MModule::GetDataPath_Global(const MString& subdirectory) {
    MString path;
    MGuard("MModule::GetDataPath_Global", [&] {
        path = NormalizedDataPath(MSpecialFolderData, subdirectory);
        MFile::CreatePath(path);
    });
    return path;
}

MString MModule::GetDataPath_User(const MString& subdirectory, bool fallbackToGlobal) {
    MString path;
    MGuard("MModule::GetDataPath_User", [&] {
        path = NormalizedDataPath(MSpecialFolderUserData, subdirectory);
        if (MFile::Exists(path)) return;
        if (fallbackToGlobal)
            path = GetDataPath_Global(subdirectory);
        else
            MFile::CreatePath(path);
    });
    return path;
}

MString MModule::GetDataPath_File_User(const MString& file, const MString& subdirectory,
                                       bool useModuleName) const {
    MString path;
    MGuard("MModule::GetDataPath_File_User", [&] {
        const MString directory = useModuleName ? Name : subdirectory;
        path = MFile::Join(GetDataPath_User(directory), file);
        const MString shared = MFile::Join(NormalizedDataPath(MSpecialFolderData, directory), file);
        if (!MFile::Exists(path) && MFile::Exists(shared)) MFile::Copy(shared, path);
    });
    return path;
}

MString MModule::LoadDocumentation(const MString& name) const {
    MString text;
    MGuard("MModule::LoadDocumentation", [&] {
        const MString directory = MFile::Join(GetDataPath_Global("Data"), DocumentationDirectory);
        MStdFileStream file;
        file.Open(MFile::Join(directory, name + ".txt"), MOpenRead);
        text = file.LoadText(false);
    });
    return text;
}
