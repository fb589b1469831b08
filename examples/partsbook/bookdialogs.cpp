#include "bookdialogs.h"

#include "text.h"

#include <QDir>
#include <xeafxdlgs.h>

namespace {

constexpr const wchar_t* csvSuffix = L"csv";
constexpr const wchar_t* archiveSuffix = L"parts";

/// Saves under the suffix of the type that is chosen.
class CSaveBookDialog : public CFileDialog_X
{
public:
    using CFileDialog_X::CFileDialog_X;

    void OnTypeChange() override
    {
        auto* const dialog = Imp<QFileDialog>();
        m_strDefExt = dialog->selectedNameFilter().contains(XeQString(archiveSuffix)) ? archiveSuffix : csvSuffix;
        dialog->setDefaultSuffix(XeQString(m_strDefExt));
    }
};

} // namespace

QString askForBook(const CWnd_X& parent, const QString& present)
{
    CFileDialog_X dialog(&parent, loadText(IDS_OPEN), present, loadText(IDS_OPEN_KINDS), OFN_HIDEREADONLY, TRUE);
    return dialog.DoModal() == IDOK ? XeQString(dialog.GetPathName()) : QString();
}

QString askForNewBook(const CWnd_X& parent, const QString& present)
{
    CSaveBookDialog dialog(&parent, loadText(IDS_SAVE_AS), present, loadText(IDS_FILE_KINDS), OFN_OVERWRITEPROMPT,
                           FALSE);
    dialog.m_strDefExt = csvSuffix;
    return dialog.DoModal() == IDOK ? XeQString(dialog.GetPathName()) : QString();
}

QStringList askForBooks(const CWnd_X& parent, const QString& folder)
{
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT | OFN_EXPLORER, loadText(IDS_OPEN_KINDS),
                         &parent);
    dialog.SetCaptionText(loadText(IDS_IMPORT));
    dialog.SetInitialDir(folder);
    QStringList files;
    if (dialog.DoModal() != IDOK)
        return files;
    for (POSITION position = dialog.GetStartPosition(); position;)
        files += XeQString(dialog.GetNextPathName(position));
    return files;
}

QString askForPicture(const CWnd_X& parent, const QString& folder)
{
    CFileDialog_X dialog(&parent, loadText(IDS_CHOOSE_PICTURE), nullptr, loadText(IDS_PICTURE_KINDS), OFN_HIDEREADONLY,
                         TRUE);
    dialog.SetInitialDir(folder);
    if (dialog.DoModal() != IDOK)
        return {};
    const QString file = XeQString(dialog.GetPathName());
    const QString seen = QDir(folder).relativeFilePath(file);
    return seen.startsWith(QLatin1String("..")) ? file : seen;
}

QString askForFolder()
{
    CString_X folder;
    SHBrowseForFolder_X(loadText(IDS_BACK_UP), folder);
    return XeQString(folder);
}

bool askForColor(const CWnd_X& parent, COLORREF& color)
{
    CColorDialog_X dialog(color, CC_FULLOPEN, &parent);
    if (dialog.DoModal() != IDOK)
        return false;
    color = dialog.GetColor();
    return true;
}
