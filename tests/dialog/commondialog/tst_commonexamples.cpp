// The examples of the common dialogs' class comments, word for word, put to use.

#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <xeafxdc.h>
#include <xeafxdlgs.h>

namespace {

class CBookFrame : public CWnd_X
{
public:
    void OnFileOpen()
    {
        CFileDialog_X dialog(TRUE, L"csv", nullptr, OFN_HIDEREADONLY, L"CSV (*.csv)|*.csv|All (*.*)|*.*||", this);
        if (dialog.DoModal() == IDOK)
            load(dialog.GetPathName());
    }

    void OnTextColor()
    {
        CColorDialog_X dialog(m_textColor, 0, this);
        if (dialog.DoModal() == IDOK)
            m_textColor = dialog.GetColor();
    }

    void OnFilePrint()
    {
        CPrintDialog_X dialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES, this);
        if (dialog.DoModal() != IDOK)
            return;
        if (auto* const painter = static_cast<QPainter*>(dialog.GetPrinterDC())) {
            auto& printer = *static_cast<QPrinter*>(painter->device());
            paintPage(*painter, 1);
            printer.newPage();
            paintPage(*painter, 2);
            DeleteDC_X(painter);
        }
    }

    CString_X m_loaded;
    COLORREF m_textColor = RGB(1, 2, 3);

private:
    void load(const CString_X& path) { m_loaded = path; }
    void paintPage(QPainter& painter, int number) { painter.drawText(100, 100, QString::number(number)); }
};

template <class Dialog>
void click(const Dialog& dialog, QDialogButtonBox::StandardButton button)
{
    dialog.template findChild<QDialogButtonBox*>()->button(button)->click();
}

} // namespace

class tst_CommonExamples : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_frame.Create(0, static_cast<QWidget*>(nullptr))); }
    void cleanup()
    {
        m_frame.DestroyWindow();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void fileToOpen();
    void colorOfTheText();
    void twoPages();

private:
    CBookFrame m_frame;
};

void tst_CommonExamples::fileToOpen()
{
    const ModalDriver<QFileDialog> driver([](QFileDialog* dialog) {
        dialog->setDirectory(QStringLiteral("/"));
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("book"));
        click(*dialog, QDialogButtonBox::Open);
    });
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()"); // of its size
    m_frame.OnFileOpen();
    QCOMPARE(XeQString(m_frame.m_loaded), QStringLiteral("/book.csv"));
}

void tst_CommonExamples::colorOfTheText()
{
    const ModalDriver<QColorDialog> driver([](QColorDialog* dialog) {
        QCOMPARE(dialog->currentColor(), QColor(1, 2, 3));
        dialog->setCurrentColor(QColor(4, 5, 6));
        click(*dialog, QDialogButtonBox::Ok);
    });
    m_frame.OnTextColor();
    QCOMPARE(m_frame.m_textColor, RGB(4, 5, 6));
}

void tst_CommonExamples::twoPages()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("book.pdf"));
    const ModalDriver<QPrintDialog> driver([&](QPrintDialog* dialog) {
        dialog->findChild<QLineEdit*>(QStringLiteral("filename"))->setText(path);
        click(*dialog, QDialogButtonBox::Ok);
    });
    m_frame.OnFilePrint();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().count("/Type /Page\n"), 2);
}

XE_TEST(tst_CommonExamples)
#include "tst_commonexamples.moc"
