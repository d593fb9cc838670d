#pragma once

#include "install/definition/MSetupSession.h"

/// Refuses a directory that a user has chosen, or that the system gives, if it is no complete path, as an empty one
/// is not; or if its text holds the key of a macro, as "{documents}": what is expanded later would lead
/// elsewhere, or never end. The macros of the directories are in the table already. Raises `MRefusal`.
void MCheckDirectories(const MSetupSession& session, const MList<MString>& directories);

/// Refuses paths that "setup.state" would not give back as they are, such as names that are no text: the
/// removal would look elsewhere, at somebody else's files. Looks at the main directory and at the
/// destinations of all enabled parts, which are expanded already. Raises `MRefusal`.
void MCheckStatePaths(const MSetupSession& session, const MString& mainPath);

/// Refuses a main directory in which the program that the installation leaves would replace an installer with
/// its payload, maybe the running one; one where that program would find installer data beside itself; and
/// one that is the main directory of another product, whose state would be lost. Products whose names are in
/// `replaced` are as good as removed. A product that would itself put such data there is refused too. Raises
/// `MRefusal`, and "Could not find required attribute ({0})." (0) for an `extension`.
void MCheckMainDirectory(const MSetupSession& session, const MString& mainPath,
                         const MList<MString>& replaced);
