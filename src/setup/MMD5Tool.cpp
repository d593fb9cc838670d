#include "setup/MMD5Tool.h"

#include "foundation/base/MException.h"
#include "streams/hashes/MMD5Text.h"

namespace {

MString HashFile(const MString& name, MUserDialogs& dialogs) {
    MStdFileStream file;
    file.Open(name, MOpenRead);
    const auto progress = dialogs.OpenProgress(MTranslate("Generating MD5..."));
    return MMD5OfStream(file);
}

void WriteCompanion(const MString& name, const MString& digest) {
    MStdFileStream companion;
    companion.Open(name + ".md5", MOpenWrite | MOpenCreate);
    companion.WriteLine(digest);
    companion.Close();
}

}  // namespace

void MRunMD5Tool(const MList<MString>& arguments, MConsoleStream& console, MUserDialogs& dialogs) {
    try {
        console.WriteLine("Generate MD5");
        const MString name = arguments.GetCount() >= 2 ? arguments[1] : MString("setup.dat");
        console.WriteLine(name);
        console.WriteLine("Processing...");
        const MString digest = HashFile(name, dialogs);
        console.WriteLine("Resulting hash: " + digest);
        WriteCompanion(name, digest);
        dialogs.ShowText(MTranslate("Resulting MD5 hash is"), digest);
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
    }
}
