#pragma once

#include "ui/control/MXmlLoader.h"

/// Gives a loader the names of all controls, layouts and types of values of the toolkit; `docs/controls.md`
/// lists them. Editors of sounds have names and nothing else here: they become plain containers. What is put
/// together calls `MControl::MXmlLoader::SetFiller(&MAddStandardCreators)`.
void MAddStandardCreators(MControl::MXmlLoader& loader);
