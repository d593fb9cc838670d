#pragma once

class MLargeResourceLibrary;
class MWizardDialogs;

/// Installs an update or a package that has come as a program of its own: finds the installation that it belongs to,
/// or asks the user where it is, shows it in the update manager, and leaves this program as the installed one, which
/// so is as new as the update. Raises "Update installation has been cancelled." (0), and what reading the package,
/// `MUpdateInstallerWindow` and `MLeaveInstalledProgram` raise.
void MRunLocalUpdate(MLargeResourceLibrary& package, MWizardDialogs& dialogs);
