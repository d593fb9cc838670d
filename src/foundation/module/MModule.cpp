#include "foundation/module/MModule.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MThread.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/module/MPluginLibrary.h"
#include "streams/basic/MConsoleStream.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/resources/MResourceLibrary.h"

#include <cstdlib>

namespace {

MModule* instanceModule = nullptr;
MModule* hostModule = nullptr;

void* DispatchService(const MString& service, void* argument) {
    return instanceModule ? instanceModule->CallService(service, argument) : nullptr;
}

}  // namespace

MModule::MModule()
    : Resources(std::make_unique<MResourceLibrary>()),
      GlobalData(std::make_unique<MMemoryStream>()),
      Console(std::make_unique<MConsoleStream>()) {
    if (!hostModule) hostModule = this;
    MGuard("InitMLibrarySubSystems", [] {
        MPlatform::StartSubsystems();
        [[maybe_unused]] static const int registered = std::atexit([] { MThread::SetProcessEnding(true); });
    });
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
        MLoadGlobalResources();
        if (Name.IsEmpty()) Name = MFile::GetBaseName(FilePath);
        const MString companion = MFile::ChangeExtension(FilePath, "mrf");
        if (Resources->IsEmpty() && MFile::Exists(companion)) Resources->LoadFile(companion);
    });
}

void MModule::MLoadGlobalResources() {
    MGuard("MLoadGlobalResources", [this] {
        const auto& [resources, globalData] = embeddedBlocks;
        GlobalData->Attach(globalData.data(), static_cast<int32_t>(globalData.size()));
        if (resources.empty()) return;
        MMemoryStream stream(resources.data(), static_cast<int32_t>(resources.size()));
        Resources->Load(stream);
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

MString MModule::GetDataPath_File_User(const MString& file, const MString& subdirectory,
                                       bool useModuleName) const {
    MString path;
    MGuard("MModule::GetDataPath_File_User", [&] {
        const MString name = MFile::Join(useModuleName ? Name : subdirectory, file);
        path = MFile::Join(GetDataPath_User(MString()), name);
        MFile::CreatePath(MFile::GetDirectory(path));
        const MString shared = MFile::Join(MFile::GetSpecialPath(MSpecialFolderData), name);
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
