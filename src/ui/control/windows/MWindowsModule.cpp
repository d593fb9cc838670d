#include "ui/control/windows/MWindowsModule.h"

#include "ui/control/MStyle.h"
#include "ui/control/windows/MWindows.h"

namespace {

MWindowsModule* GetModule() {
    return dynamic_cast<MWindowsModule*>(MModule::GetInstance());
}

void* GiveWindows(void*) {
    return MWindows::GetInstance();
}

void* MakeStyle(void* windows) {
    const MWindowsModule* const module = GetModule();
    return module && windows ? module->CreateStyle(*static_cast<MWindows*>(windows)).release() : nullptr;
}

void* TakeStyleMaker(void* maker) {
    MWindowsModule* const module = GetModule();
    if (module && maker) module->RegisterStyle(*static_cast<MWindowsModule::MStyleMaker*>(maker));
    return nullptr;
}

}  // namespace

void MWindowsModule::Initialize() {
    MModule::Initialize();
    AddService("MWindowsConfiguration", GiveWindows);
    AddService("MWindowsCreateStyle", MakeStyle);
    AddService("MWindowsRegisterStyle", TakeStyleMaker);
}

std::unique_ptr<MStyle> MWindowsModule::CreateStyle(MWindows& owner) const {
    return styleMaker.create ? styleMaker.create(owner) : nullptr;
}
