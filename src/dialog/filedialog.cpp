#include "xeafxdlgs.h"

#include "dialog/filetypes.h"
#include "dialog/standardbuttons.h"

#include <QAbstractProxyModel>
#include <QComboBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListView>
#include <QTreeView>
#include <QVariant>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace {

constexpr char pathProperty[] = "pathName";
constexpr char nameProperty[] = "fileName";
constexpr char folderProperty[] = "folderPath";
constexpr char filesProperty[] = "selectedFiles";

// What the accessors answer, as it is now.
class Answers
{
public:
    explicit Answers(const CFileDialog_X& dialog)
    {
        std::transform(names.begin(), names.end(), m_values.begin(),
                       [&dialog](const char* name) { return dialog.property(name); });
    }

    void restore(CFileDialog_X& dialog) const
    {
        for (std::size_t i = 0; i < names.size(); ++i)
            dialog.setProperty(names[i], m_values[i]);
    }

private:
    static constexpr std::array<const char*, 4> names = {pathProperty, nameProperty, folderProperty, filesProperty};
    std::array<QVariant, names.size()> m_values;
};

template <class Widget>
Widget* part(const QObject* dialog, const char* name)
{
    return dialog ? dialog->findChild<Widget*>(QLatin1String(name)) : nullptr;
}

QLineEdit* nameEdit(const QObject* dialog) { return part<QLineEdit>(dialog, "fileNameEdit"); }

void showFolder(QFileDialog& dialog, const QString& folder)
{
    const QFileInfo info(folder);
    if (info.isFile()) {
        dialog.setDirectory(info.absolutePath());
        dialog.selectFile(info.fileName());
    } else {
        dialog.setDirectory(folder);
    }
}

void enterFolder(QFileDialog& dialog, const QString& path, const QString& name)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const bool isWanted =
        dialog.fileMode() == QFileDialog::Directory || dialog.fileMode() == QFileDialog::DirectoryOnly;
    QT_WARNING_POP
    const QPointer<QFileDialog> living(&dialog);
    dialog.setDirectory(path);
    emit dialog.directoryEntered(path);
    if (QLineEdit* const edit = nameEdit(living))
        edit->setText(isWanted ? name : QString());
}

// Element by element, where that tells: a walk asks it at each step.
bool isSame(const QString& path, const CString_X& wide)
{
    const auto* const elements = path.utf16();
    const auto length = static_cast<std::size_t>(path.size());
    if (wide.size() == length && std::equal(elements, elements + length, wide.begin(), std::equal_to<>()))
        return true;
    return CString_X(path) == wide; // with pairs of surrogates
}

// Where the path is in the list, which is most likely at `place`; -1 if it is not there.
int indexOf(const QStringList& files, const CString_X& path, int place)
{
    if (place < files.size() && isSame(files.at(place), path))
        return place;
    const auto found =
        std::find_if(files.begin(), files.end(), [&path](const QString& file) { return isSame(file, path); });
    return found == files.end() ? -1 : static_cast<int>(found - files.begin());
}

} // namespace

IMPLEMENT_DYNAMIC_X(CFileDialog_X, CCommonDialog_X)

CFileDialog_X::CFileDialog_X(QWidget* parent, Qt::WindowFlags, int open)
    : CCommonDialog_X(parent),
      m_bOpenFileDialog(open)
{}

CFileDialog_X::CFileDialog_X(QWidget* parent, const CString_X& caption, const CString_X& directory,
                             const CString_X& filter, unsigned flags, int open)
    : CCommonDialog_X(parent),
      m_strCaption(caption),
      m_strInitialDir(directory),
      m_strFilter(filter),
      m_bOpenFileDialog(open),
      m_dwFlags(flags)
{}

CFileDialog_X::CFileDialog_X(int open, const wchar_t* defExt, const wchar_t* fileName, unsigned flags,
                             const wchar_t* filter, QWidget* parent)
    : CCommonDialog_X(parent),
      m_strFilter(filter),
      m_strFileName(fileName),
      m_bOpenFileDialog(open),
      m_strDefExt(defExt),
      m_dwFlags(flags)
{}

// -------------------------------------------------------------------------------------------------------- the answers

CString_X CFileDialog_X::GetPathName() const { return property(pathProperty).toString(); }

CString_X CFileDialog_X::GetFileName() const { return property(nameProperty).toString(); }

CString_X CFileDialog_X::GetFolderPath() const { return property(folderProperty).toString(); }

QStringList CFileDialog_X::GetFileNames() const { return property(filesProperty).toStringList(); }

POSITION CFileDialog_X::GetStartPosition()
{
    if (!(m_dwFlags & OFN_ALLOWMULTISELECT))
        return nullptr;
    m_walked = 0;
    m_strCurrentPath = GetFileNames().value(0);
    return m_strCurrentPath.IsEmpty() ? nullptr : reinterpret_cast<POSITION>(&m_strCurrentPath);
}

CString_X CFileDialog_X::GetNextPathName(POSITION& position)
{
    const bool isMine = position && position == reinterpret_cast<POSITION>(&m_strCurrentPath);
    if (!isMine || !(m_dwFlags & OFN_ALLOWMULTISELECT)) {
        position = nullptr;
        return {};
    }
    if (m_files.isEmpty())
        m_files = GetFileNames();
    const int next = indexOf(m_files, m_strCurrentPath, m_walked) + 1;
    if (next == 0 || next == m_files.size()) {
        position = nullptr;
        return m_strCurrentPath;
    }
    m_walked = next;
    CString_X path = std::exchange(m_strCurrentPath, CString_X(m_files.at(next)));
    if (m_strCurrentPath.IsEmpty())
        position = nullptr;
    return path;
}

void CFileDialog_X::SetControlText(CString_X, const wchar_t* text)
{
    if (QLineEdit* const edit = nameEdit(Imp<QFileDialog>()))
        edit->setText(XeQString(text));
}

// --------------------------------------------------------------------------------------------------------- the dialog

// The filter is not for the constructor, which would take it for Qt's form.
bool CFileDialog_X::AttachDefault(QWidget* parent)
{
    auto* const dialog = new QFileDialog(parent, XeQString(m_strCaption), XeQString(m_strInitialDir));
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    return Attach(dialog, parent, false);
}

int CFileDialog_X::OnCreate(tagCREATESTRUCTW* createStruct)
{
    const int result = CCommonDialog_X::OnCreate(createStruct);
    auto* const dialog = Imp<QFileDialog>();
    if (!result && dialog)
        dialog->setLabelText(QFileDialog::FileType, QStringLiteral("文件类型(T):"));
    return result;
}

BOOL CFileDialog_X::OnInitDialog()
{
    const BOOL result = CCommonDialog_X::OnInitDialog();
    auto* const dialog = Imp<QFileDialog>();
    if (!result || !dialog)
        return result;
    if (!m_strCaption.IsEmpty())
        dialog->setWindowTitle(XeQString(m_strCaption));
    if (!m_strInitialDir.IsEmpty())
        showFolder(*dialog, XeQString(m_strInitialDir));
    xe::offerTypes(*dialog, xe::typeLabels(XeQString(m_strFilter)));
    // To save several files Qt would refuse a new name.
    if (m_bOpenFileDialog && m_dwFlags & OFN_ALLOWMULTISELECT)
        dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setAcceptMode(m_bOpenFileDialog ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(XeQString(m_strDefExt));
    if (!m_strFileName.IsEmpty())
        dialog->selectFile(XeQString(m_strFileName));
    if (const auto* const types = part<QComboBox>(dialog, "fileTypeCombo")) {
        disconnect(types, &QComboBox::currentTextChanged, this, nullptr);
        connect(types, &QComboBox::currentTextChanged, this, [this] { OnTypeChange(); });
    }
    dialog->setLabelText(QFileDialog::Reject, QString::fromUtf16(xe::cancelLabel));
    return result;
}

void CFileDialog_X::OnOK()
{
    const QPointer<QFileDialog> dialog = Imp<QFileDialog>();
    QStringList files = dialog ? dialog->selectedFiles() : QStringList();
    if (files.isEmpty())
        return;
    files.removeDuplicates();
    const Answers before(*this);
    setProperty(pathProperty, files.first());
    setProperty(nameProperty, QFileInfo(files.first()).fileName());
    setProperty(folderProperty, dialog->directory().path());
    setProperty(filesProperty, files);
    dialog->setResult(QDialog::Rejected);
    const QPointer<CFileDialog_X> living(this);
    CCommonDialog_X::OnOK();
    // Qt may have entered a folder, or asked and got No.
    if (living && (!dialog || dialog->result() != QDialog::Accepted))
        before.restore(*this);
}

bool CFileDialog_X::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange)
        m_files.clear();
    return CCommonDialog_X::event(event);
}

void CFileDialog_X::OnTypeChange() {}

// ------------------------------------------------------------------------------------------------- activated entries

void CFileDialog_X::ConnectSlotsFrom(QObject* from, bool keep)
{
    CCommonDialog_X::ConnectSlotsFrom(from, keep);
    const auto takeOver = [this](QAbstractItemView* view) {
        if (!view)
            return;
        disconnect(view, SIGNAL(activated(QModelIndex)), nullptr, nullptr);
        connect(view, SIGNAL(activated(QModelIndex)), this, SLOT(onDoubleClicked(QModelIndex)));
    };
    takeOver(part<QListView>(from, "listView"));
    takeOver(part<QTreeView>(from, "treeView"));
}

void CFileDialog_X::onDoubleClicked(const QModelIndex& index)
{
    auto* const dialog = Imp<QFileDialog>();
    if (!dialog || !index.isValid())
        return;
    const auto* const proxy = dialog->proxyModel();
    const QModelIndex entry = proxy && index.model() == proxy ? proxy->mapToSource(index) : index;
    const QString path = entry.data(QFileSystemModel::FilePathRole).toString();
    if (path.isEmpty())
        return;
    if (!QFileInfo(path).isDir()) {
        // A click with Control goes on with a selection, also where one click activates.
        if (dialog->fileMode() != QFileDialog::ExistingFiles
            || !(QGuiApplication::keyboardModifiers() & Qt::ControlModifier))
            accept();
        return;
    }
    enterFolder(*dialog, path, entry.sibling(entry.row(), 0).data().toString());
}
