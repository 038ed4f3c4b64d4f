// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A folder of files that nobody may open, half of them named pipes that would be waited for.
class PlantedFiles {
public:
    /// Made in a working folder, which programs run in.
    explicit PlantedFiles(const QString& workFolder);

    QString folder() const { return m_work + "/planted"; }
    /// Plants a file and a pipe, unless they are there, and gives all ways to name them: whole,
    /// seen from the working folder, around corners, as an address.
    QStringList plant(const QString& name);

private:
    QString m_work;
};
