// Settings in an INI file that is whole at every moment.
#pragma once

#include <QSettings>

class QTextCodec;

namespace xe {

/// A QSettings object with a reader and a writer of this library's own, for the same INI format.
///
/// Qt's own writer puts a new file in place of the old one though its last part found no room on the disk. And after a
/// file that could not be opened QSettings goes on as if that had been empty. Here the new file takes the old one's
/// place when all of it is on the disk, and only if all that is in the old one has been read. What could not be written
/// stays in memory; the next flush that can writes it.
///
/// Other QSettings objects of the process with the same file share their entries with this one at once, and write them
/// in Qt's way.
class IniSettings : public QSettings
{
public:
    /// Characters outside ASCII are UTF-8.
    explicit IniSettings(const QString& fileName);

    /// The file of an organisation and an application in the user's configuration folder. Characters outside ASCII are
    /// escape sequences.
    IniSettings(const QString& organization, const QString& application);

    /// Writes what has been changed and reads what others have changed.
    void sync();

protected:
    bool event(QEvent* event) override;

private:
    void readIfUnread();
};

} // namespace xe
