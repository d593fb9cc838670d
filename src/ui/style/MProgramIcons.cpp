#include "ui/style/MProgramIcons.h"

#include "ui/control/windows/MWindows.h"
#include "ui/style/images/TexturedImage.h"

void MShowProgramIcons(MWindows& windows, const MResourceLibrary& resources) {
    MList<MBitmap> icons;
    for (const char* id : {"program16", "program32", "program48"})
        if (const MBitmap icon = MLoadPicture(resources, id); !icon.IsEmpty()) icons.Add(icon);
    windows.SetIcons(icons);
}
