// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>
#include <kx/kxInterfacePtr.h>
#include <kx/kxRefCounted.h>
#include <kx/kxString.h>

/// The host's command line, as add-ins write to it and ask through it.
class KX_EXPORT kxCommandMessage_c : public kxRefCounted_c {
public:
    /// Prints one line. A host without a command line drops it.
    virtual void PrintLine(const kxString& line) = 0;
    /// Lets the user select in the active drawing and returns when that has ended. With `single`
    /// the first object ends it. `keyword` is a further word that may be typed, or empty.
    /// `result` becomes true when the user ended it with a selection, false when it was cancelled
    /// or there is nobody to ask. The objects become the previous selection set.
    virtual void PromptForSelection(bool single, const kxString& prompt, const kxString& keyword,
                                    bool* result) = 0;

protected:
    ~kxCommandMessage_c() override;
};
using kxCommandMessage_ptr = kxInterfacePtr<kxCommandMessage_c>;
