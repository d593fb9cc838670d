#include "setup/MMD5Tool.h"

#include "foundation/base/MException.h"
#include "streams/hashes/MMD5Text.h"

namespace {

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
        MStdFileStream file;
        file.Open(name, MOpenRead);
        console.WriteLine("Processing...");
        auto progress = dialogs.OpenProgress(MTranslate("Generating MD5..."));
        const MString digest = MMD5OfStream(file);
        progress.reset();
        console.WriteLine("Resulting hash: " + digest);
        WriteCompanion(name, digest);
        dialogs.ShowText(MTranslate("Resulting MD5 hash is"), digest);
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
    }
}
