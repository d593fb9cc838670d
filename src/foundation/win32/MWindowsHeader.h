#pragma once

/// The one place through which windows.h comes in: lean, in its 16-bit form, and without the macros that
/// have the names of operations of ours.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0601
#endif

#include <windows.h>

#undef CopyFile
#undef CreateDialog
#undef CreateDirectory
#undef CreateEvent
#undef CreateFile
#undef CreateFont
#undef CreateWindow
#undef DeleteFile
#undef DialogBox
#undef DispatchMessage
#undef DrawText
#undef FindFirstFile
#undef FindNextFile
#undef FindResource
#undef FindWindow
#undef GetClassName
#undef GetCommandLine
#undef GetCurrentDirectory
#undef GetCurrentTime
#undef GetFileAttributes
#undef GetMessage
#undef GetModuleFileName
#undef GetObject
#undef GetTempPath
#undef GetUserName
#undef LoadBitmap
#undef LoadCursor
#undef LoadIcon
#undef LoadImage
#undef LoadLibrary
#undef LoadString
#undef MessageBox
#undef MoveFile
#undef PostMessage
#undef RegisterClass
#undef RemoveDirectory
#undef SendMessage
#undef SetCurrentDirectory
#undef SetFileAttributes
#undef ShellExecute
#undef Yield
