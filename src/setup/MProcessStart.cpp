#include "setup/MProcessStart.h"

#include "setup/MLastChance.h"
#include "setup/MSetupApplication.h"
#include "setup/console/MUnattendedOptions.h"

int32_t MRunSetupProcess(void* instance, const MList<MString>& arguments) {
    constexpr int32_t Failure = -1;
    MWatchForProcessorFaults(MUnattendedOptions::IsRequested(arguments));
    try {
        const std::unique_ptr<MSetupApplication> application = MCreateModuleInstance(instance);
        if (!application) return Failure;
        application->SetArguments(arguments);
        application->Initialize();
        return application->PerformMain_();
    } catch (const MException& exception) {
        MShowLastChanceMessage(exception.GetMessage());
        return Failure;
    }
}
