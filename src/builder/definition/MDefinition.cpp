#include "builder/definition/MDefinition.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MStdFileStream.h"

#include <algorithm>

bool MDefinition::Load(const MString& path, MProblemList& problems) {
    directory = MFile::GetDirectory(MFile::Normalize(path));
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MLibraryInternals::MXMLParser parser(root, &table);
    try {
        parser.ParseDocument(file);
        return true;
    } catch (const MException& exception) {
        problems.AddError(
            std::max(parser.GetLine(), 1),
            MFormat("{0} Correct the XML; nothing behind it was checked.", exception.GetMessage()));
        return false;
    }
}

int32_t MDefinition::GetLine(const MXMLItem& item) const {
    for (const MXMLItem* known = &item; known; known = known->GetParent())
        if (const auto found = table.lines.find(known); found != table.lines.end()) return found->second;
    return 1;
}

MString MDefinition::GetSourcePath(const MString& name) const {
    MString path = name;
    path.ReplaceChar(MChar('\\'), "/");
    return MFile::Normalize(MFile::IsAbsolute(path) ? path : MFile::Join(directory, path));
}
