// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

class kxString;

/// What an event calls. The first argument is the owner given at registration. A hook returns
/// true to let the host go on; a hook must not throw.
using kxNotifyHook = bool (*)(void* owner);

/// How a drawing is about to be saved.
enum kxDocumentSaveAsOption_e { kxDocumentSaveAs_Same = 0, kxDocumentSaveAs_Dxf = 1 };
using kxFileSavePreHook = bool (*)(void* owner, const kxString& fileName,
                                   kxDocumentSaveAsOption_e option);

/// How a registration or its removal ended.
enum kxEventResult_e {
    kxEventResult_Success = 1,
    /// The same owner already listens to this event; nothing was changed.
    kxEventResult_AlreadyRegistered = 2,
    /// The object has no such event, or the event calls a hook of another form.
    kxEventResult_UnknownEvent = 3,
    kxEventResult_NotRegistered = 4
};

enum kxApplicationEvent_e {
    kxApplication_FileNewNotify_id = 1,
    kxApplication_FileOpenPostNotify_id = 2,
    kxApplication_ActiveDocumentChangedNotify_id = 5
};

enum kxDocumentEvent_e {
    kxDocument_DestroyNotify_id = 1,
    /// Takes a `kxFileSavePreHook`; all others take a `kxNotifyHook`.
    kxDocument_FileSavePreNotify_id = 2,
    kxDocument_FileSavePostNotify_id = 3,
    kxDocument_ModifyNotify_id = 4
};

enum kxSelectionManagerEvent_e { kxSelectionManager_SelectionChangedNotify_id = 1 };

enum kxCommandEvent_e { kxCommand_ExecuteNotify_id = 1 };
