#pragma once

class MResourceLibrary;
class MWindows;

/// Gives the windows that are made from now on the program's picture: the items "program16", "program32" and
/// "program48" of a library, as far as it has them.
void MShowProgramIcons(MWindows& windows, const MResourceLibrary& resources);
