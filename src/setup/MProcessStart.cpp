#include "setup/MProcessStart.h"

#include "setup/MLastChance.h"
#include "setup/MSetupApplication.h"
#include "setup/console/MSilentFrontEnd.h"
#include "setup/console/MUnattendedOptions.h"
#include "setup/wizard/MWizardFrontEnd.h"

int32_t MRunSetupProcess(void* instance, const MList<MString>& arguments, const MEmbeddedBlocks& blocks) {
    constexpr int32_t Failure = -1;
    const bool isSilent = MUnattendedOptions::IsRequested(arguments);
    MWatchForProcessorFaults(isSilent);
    try {
        const MList<MString> words = MUnattendedOptions::WithoutRequest(arguments);
        // The tool is a maker's, who reads what it shows; and whoever installs silently means no tool.
        if (isSilent && !words.IsEmpty() && words[0] == "md5") {
            MUnattendedDialogs(MRetryAnswer::Refuse)
                .ShowError(
                    MTranslate("The words silent and md5 cannot be used together: the tool that writes a "
                               "digest is started by md5 alone."));
            return MExitRefused;
        }
        std::unique_ptr<MFrontEnd> frontEnd;
        if (isSilent)
            frontEnd = std::make_unique<MSilentFrontEnd>(words);
        else
            frontEnd = std::make_unique<MWizardFrontEnd>();
        const std::unique_ptr<MSetupApplication> application =
            MCreateModuleInstance(instance, std::move(frontEnd));
        if (!application) return Failure;
        application->SetArguments(words);
        application->SetEmbeddedBlocks(blocks);
        application->Initialize();
        return application->PerformMain_();
    } catch (const MException& exception) {
        MShowLastChanceMessage(exception.GetMessage());
        return Failure;
    }
}
