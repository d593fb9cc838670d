#include "builder/commands/MUpdateCommand.h"

#include "builder/commands/MRunBuilder.h"
#include "builder/definition/MDefinitionText.h"
#include "builder/output/MTextProgress.h"
#include "builder/packing/MPayloadWriter.h"
#include "builder/packing/MPieceCodecs.h"
#include "builder/packing/MSetupProgram.h"
#include "builder/reports/MUpdateCounts.h"
#include "foundation/base/MAddSize.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "streams/basic/MOutputFile.h"

namespace {

MList<MString> GetOlderDefines(const MBuilderOptions& options) {
    MList<MString> defines = options.defines;
    for (const MString& define : options.olderDefines) defines.Add(define);
    return defines;
}

const MString& Choose(const MString& wanted, const MString& other) {
    return wanted.IsEmpty() ? other : wanted;
}

}  // namespace

MUpdateCommand::MUpdateCommand(const MBuilderOptions& options, MBuilderOutput& output)
    : options(options),
      output(output),
      older(options.input, GetOlderDefines(options)),
      newer(options.newer, options.defines),
      offer(MakeOffer()),
      tree(older, newer, offer) {}

int32_t MUpdateCommand::Run() {
    // Both are told of.
    const bool isOlderGood = older.Check(output);
    if (!newer.Check(output) || !isOlderGood) return Refuse();
    CheckTimes();
    tree.Build(problems);
    if (!problems.IsEmpty()) return Refuse();
    RefuseOutputAmongInputs();
    Write();
    return MBuilderExitDone;
}

MUpdateInformation MUpdateCommand::MakeOffer() const {
    const MXMLItem& root = newer.GetRoot();
    const MString product = older.GetRoot().GetAttribute("name", "");
    MUpdateInformation made;
    made.name = Choose(options.offer.name, root.GetAttribute("name", ""));
    made.text = options.offer.description;
    made.time = Choose(options.offer.time, root.GetAttribute("time", ""));
    made.baseTime = older.GetRoot().GetAttribute("time", "");
    made.installationName = older.GetRoot().GetAttribute("installationname", product);
    made.showInfo = options.offer.showInfo;
    made.execute = options.offer.execute;
    made.restarts = options.offer.restarts;
    made.isPackage = options.command == MBuilderCommand::Package;
    return made;
}

void MUpdateCommand::CheckTimes() {
    MList<MString> faults;
    offer.Check(faults);
    for (const MString& fault : faults) problems.Add("The update " + fault);
    if (!MIsOfferTime(offer.baseTime))
        problems.Add(
            MFormat("\"{0}\" has \"{1}\" for its time. Updates are found by the \"time\" of \"install\": "
                    "write it as \"2014-12-23 14:19:26\".",
                    older.GetPath(), offer.baseTime));
    else if (!offer.isPackage && faults.IsEmpty() &&
             MFileTimeFromText(offer.time) <= MFileTimeFromText(offer.baseTime))
        problems.Add(
            MFormat("The update's time {0} is not later than {1}, that of \"{2}\", and so nobody would be "
                    "offered it. Correct the \"time\" of the newer version, or give a later one by --time.",
                    offer.time, offer.baseTime, older.GetPath()));
    const MString name = newer.GetRoot().GetAttribute("name", "");
    if (!(newer.GetRoot().GetAttribute("installationname", name) == offer.installationName))
        problems.Add(MFormat("\"{0}\" is found by the name \"{1}\", and \"{2}\" by another. Give both one "
                             "\"installationname\".",
                             older.GetPath(), offer.installationName, newer.GetPath()));
}

int32_t MUpdateCommand::Refuse() const {
    for (const MString& problem : problems) output.Complain("error: " + problem);
    output.Complain(MFormat("{0}: Nothing was written.", options.output));
    return MBuilderExitFailed;
}

void MUpdateCommand::RefuseOutputAmongInputs() const {
    MCommandInputs inputs;
    older.AddInputs(inputs);
    newer.AddInputs(inputs);
    if (!options.stub.IsEmpty()) inputs.Add(MFile::Normalize(options.stub));
    const MString path = MFile::Normalize(options.output);
    for (const char* suffix : {"", MOutputFile::UnfinishedSuffix}) inputs.RefuseOutput(path + suffix);
}

void MUpdateCommand::Write() {
    const bool isProgram = !options.stub.IsEmpty();
    const MSourceItemList& contents = tree.GetContents();
    int64_t sourceBytes = 0;
    for (const MSourceItem& item : contents) MAddSize(sourceBytes, item.size);

    MOutputFile file(MFile::Normalize(options.output));
    if (isProgram) MCopySetupProgram(options.stub, file);
    const std::unique_ptr<MPieceCodec> codec = MMakePieceCodec(options);
    MPayloadWriter writer(*codec, options.threads, file);
    {
        MTextProgress bar(output, sourceBytes);
        writer.WriteItems(contents, [&bar](int64_t bytes) { bar.Advance(bytes); });
    }
    writer.WriteIndex(tree.GetRoot());
    if (isProgram) writer.WriteTrailer();
    const int64_t size = file.GetPosition();
    isProgram ? file.CommitProgram() : file.Commit();
    output.Tell(MFormat("{0}: {1}, {2} bytes in, {3} bytes out", options.output,
                        MUpdateCounts(tree.GetRoot()).Describe(), sourceBytes, size));
}
