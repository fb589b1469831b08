// The message boxes: buttons, icons, captions, owners and results.

#include "resource.h"
#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>
#include <xeafxdlg.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace {

using BoxDriver = ModalDriver<QMessageBox>;

const char* iconName(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::NoIcon:
        return "none";
    case QMessageBox::Information:
        return "information";
    case QMessageBox::Warning:
        return "warning";
    case QMessageBox::Critical:
        return "critical";
    case QMessageBox::Question:
        return "question";
    }
    return "?";
}

// The buttons of a box in a fixed order, such as "Ok Cancel*", with a star behind the default one. Buttons of the box's
// own stand for themselves.
QString describeButtons(const QMessageBox& box)
{
    using Buttons = QPair<QMessageBox::StandardButton, const char*>;
    static const Buttons names[] = {
        {QMessageBox::Ok, "Ok"},         {QMessageBox::Yes, "Yes"},     {QMessageBox::No, "No"},
        {QMessageBox::Abort, "Abort"},   {QMessageBox::Retry, "Retry"}, {QMessageBox::Ignore, "Ignore"},
        {QMessageBox::Cancel, "Cancel"}, {QMessageBox::Apply, "Apply"},
    };
    const auto marked = [&box](const QString& name, const QAbstractButton* button) {
        return button == box.defaultButton() ? name + QLatin1Char('*') : name;
    };
    QStringList found;
    for (const auto& [button, name] : names) {
        if (box.button(button))
            found += marked(QString::fromLatin1(name), box.button(button));
    }
    for (QAbstractButton* button : box.buttons()) {
        if (box.standardButton(button) == QMessageBox::NoButton)
            found += marked(button->text(), button);
    }
    return found.join(QLatin1Char(' '));
}

QAbstractButton* buttonOf(const QMessageBox& box, const QString& text)
{
    for (QAbstractButton* button : box.buttons()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

class EmptyWindow : public QWidget
{
public:
    explicit EmptyWindow(const char* name) { setObjectName(QString::fromLatin1(name)); }
};

// What the box showed, as "icon 'title': 'text' of owner".
struct Shown
{
    QString text;

    void take(QMessageBox* box)
    {
        const QWidget* const owner = box->parentWidget();
        text = QStringLiteral("%1 '%2': '%3' of %4")
                   .arg(QLatin1String(iconName(box->icon())), box->windowTitle(), box->text(),
                        owner ? owner->objectName() : QStringLiteral("nobody"));
        box->button(QMessageBox::Ok)->click();
    }
};

} // namespace
Q_DECLARE_METATYPE(QMessageBox::StandardButton)

class tst_MessageBox : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void buttons_data();
    void buttons();
    void labels_data();
    void labels();

    void pressed_data();
    void pressed();
    void yesAndNo_data();
    void yesAndNo();
    void closed_data();
    void closed();
    void yesNoCannotBeClosed();
    void endedWithoutAButton_data();
    void endedWithoutAButton();
    void pressedByEnter();

    void iconAndCaption_data();
    void iconAndCaption();
    void nullText();
    void owner();
    void ownerGoesWhileTheBoxIsUp();
    void member();
    void memberWithoutAWidget();

    void overTheActiveWindow();
    void resourceTextOverTheFocus();
    void resourceText_data();
    void resourceText();
};

// ------------------------------------------------------------------------------------------------------------- buttons

void tst_MessageBox::buttons_data()
{
    QTest::addColumn<unsigned>("type");
    QTest::addColumn<QStringList>("byDefault");
    const auto row = [](const char* name, unsigned type, const char* first, const char* second, const char* third) {
        QTest::newRow(name) << type << QStringList{QString(first), QString(second), QString(third)};
    };
    row("OK", 0, "Ok", "Ok", "Ok");
    row("OK, Cancel", 1, "Ok* Cancel", "Ok Cancel*", "Ok* Cancel");
    row("Abort, Retry, Ignore", 2, "Abort* Retry Ignore", "Abort Retry* Ignore", "Abort Retry Ignore*");
    row("Yes, No, Cancel", 3, "Yes* No Cancel", "Yes No* Cancel", "Yes No Cancel*");
    row("Yes, No", 4, "是 否", "是 否", "是 否");
    row("Retry, Cancel", 5, "Retry* Cancel", "Retry Cancel*", "Retry* Cancel");
    row("Cancel, Try, Continue", 6, "Retry* Cancel Apply", "Retry Cancel* Apply", "Retry Cancel Apply*");
    row("7 counts as OK", 7, "Ok", "Ok", "Ok");
}

void tst_MessageBox::buttons()
{
    QFETCH(unsigned, type);
    QFETCH(QStringList, byDefault);
    for (unsigned place = 0; place < 3; ++place) {
        for (const unsigned icon : {0u, 0x40u, 0x1000u}) {
            QString shown;
            const BoxDriver driver([&shown](QMessageBox* box) {
                shown = describeButtons(*box);
                box->done(0);
            });
            MessageBox_X(nullptr, L"text", nullptr, type | place * 0x100 | icon);
            QCOMPARE(shown, byDefault.at(static_cast<int>(place)));
        }
    }
}

void tst_MessageBox::labels_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<QString>("label"); // empty: Qt's own
    QTest::newRow("OK") << MB_OK << QMessageBox::Ok << QStringLiteral("确定");
    QTest::newRow("OK beside Cancel") << MB_OKCANCEL << QMessageBox::Ok << QStringLiteral("确定");
    QTest::newRow("OK of 7") << 7u << QMessageBox::Ok << QStringLiteral("确定");
    QTest::newRow("Cancel beside OK") << MB_OKCANCEL << QMessageBox::Cancel << QStringLiteral("取消");
    QTest::newRow("Cancel beside No") << MB_YESNOCANCEL << QMessageBox::Cancel << QStringLiteral("取消");
    QTest::newRow("Cancel beside Retry") << MB_RETRYCANCEL << QMessageBox::Cancel << QStringLiteral("取消");
    QTest::newRow("Cancel before Try") << MB_CANCELTRYCONTINUE << QMessageBox::Cancel << QStringLiteral("取消");
    QTest::newRow("Abort") << MB_ABORTRETRYIGNORE << QMessageBox::Abort << QString();
    QTest::newRow("Retry") << MB_ABORTRETRYIGNORE << QMessageBox::Retry << QString();
    QTest::newRow("Ignore") << MB_ABORTRETRYIGNORE << QMessageBox::Ignore << QString();
    QTest::newRow("Yes") << MB_YESNOCANCEL << QMessageBox::Yes << QString();
    QTest::newRow("No") << MB_YESNOCANCEL << QMessageBox::No << QString();
    QTest::newRow("Try") << MB_CANCELTRYCONTINUE << QMessageBox::Retry << QString();
    QTest::newRow("Continue") << MB_CANCELTRYCONTINUE << QMessageBox::Apply << QString();
}

void tst_MessageBox::labels()
{
    QFETCH(unsigned, style);
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(QString, label);
    QString shown;
    const BoxDriver driver([&](QMessageBox* box) {
        shown = box->button(button)->text();
        box->done(0);
    });
    MessageBox_X(nullptr, L"text", nullptr, style);
    QMessageBox plain;
    QCOMPARE(shown, label.isEmpty() ? plain.addButton(button)->text() : label);
}

// ------------------------------------------------------------------------------------------------------------- results

void tst_MessageBox::pressed_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << MB_OK << QMessageBox::Ok << 1;
    QTest::newRow("OK beside Cancel") << MB_OKCANCEL << QMessageBox::Ok << 1;
    QTest::newRow("Cancel beside OK") << MB_OKCANCEL << QMessageBox::Cancel << 2;
    QTest::newRow("Abort") << MB_ABORTRETRYIGNORE << QMessageBox::Abort << 3;
    QTest::newRow("Retry") << MB_ABORTRETRYIGNORE << QMessageBox::Retry << 4;
    QTest::newRow("Ignore") << MB_ABORTRETRYIGNORE << QMessageBox::Ignore << 5;
    QTest::newRow("Yes") << MB_YESNOCANCEL << QMessageBox::Yes << 6;
    QTest::newRow("No") << MB_YESNOCANCEL << QMessageBox::No << 7;
    QTest::newRow("Cancel beside No") << MB_YESNOCANCEL << QMessageBox::Cancel << 2;
    QTest::newRow("Retry beside Cancel") << MB_RETRYCANCEL << QMessageBox::Retry << 4;
    QTest::newRow("Cancel beside Retry") << MB_RETRYCANCEL << QMessageBox::Cancel << 2;
    QTest::newRow("Cancel before Try") << MB_CANCELTRYCONTINUE << QMessageBox::Cancel << 2;
    QTest::newRow("Try") << MB_CANCELTRYCONTINUE << QMessageBox::Retry << 4;
    QTest::newRow("Continue counts as Yes") << MB_CANCELTRYCONTINUE << QMessageBox::Apply << 6;
    QTest::newRow("OK of 7") << 7u << QMessageBox::Ok << 1;
}

void tst_MessageBox::pressed()
{
    QFETCH(unsigned, style);
    QFETCH(QMessageBox::StandardButton, button);
    const BoxDriver driver([button](QMessageBox* box) { QTest::mouseClick(box->button(button), Qt::LeftButton); });
    QTEST(MessageBox_X(nullptr, L"text", nullptr, style), "result");
}

void tst_MessageBox::yesAndNo_data()
{
    QTest::addColumn<unsigned>("place");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("result");
    QTest::newRow("Yes") << 0u << QStringLiteral("是") << 6;
    QTest::newRow("No") << 0u << QStringLiteral("否") << 7;
    QTest::newRow("Yes beside a second default") << MB_DEFBUTTON2 << QStringLiteral("是") << 6;
    QTest::newRow("No as a second default") << MB_DEFBUTTON2 << QStringLiteral("否") << 7;
}

void tst_MessageBox::yesAndNo()
{
    QFETCH(unsigned, place);
    QFETCH(QString, label);
    const BoxDriver driver([label](QMessageBox* box) { buttonOf(*box, label)->click(); });
    QTEST(MessageBox_X(nullptr, L"text", nullptr, MB_YESNO | place), "result");
}

void tst_MessageBox::closed_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<int>("result");
    QTest::newRow("the only button is pressed") << MB_OK << 1;
    QTest::newRow("Cancel is pressed beside OK") << MB_OKCANCEL << 2;
    QTest::newRow("Abort is pressed") << MB_ABORTRETRYIGNORE << 3;
    QTest::newRow("Cancel is pressed beside No") << MB_YESNOCANCEL << 2;
    QTest::newRow("Cancel is pressed beside Retry") << MB_RETRYCANCEL << 2;
    QTest::newRow("Cancel is pressed before Try") << MB_CANCELTRYCONTINUE << 2;
}

// By the close button or Esc, Qt presses the button that means no.
void tst_MessageBox::closed()
{
    QFETCH(unsigned, style);
    {
        const BoxDriver driver([](QMessageBox* box) { box->close(); });
        QTEST(MessageBox_X(nullptr, L"text", nullptr, style), "result");
    }
    const BoxDriver driver([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
    QTEST(MessageBox_X(nullptr, L"text", nullptr, style), "result");
}

void tst_MessageBox::yesNoCannotBeClosed()
{
    bool open = false;
    const BoxDriver driver([&open](QMessageBox* box) {
        box->close();
        QTest::keyClick(box, Qt::Key_Escape);
        open = box->isVisible();
        buttonOf(*box, QStringLiteral("否"))->click();
    });
    QCOMPARE(MessageBox_X(nullptr, L"text", nullptr, MB_YESNO), 7);
    QVERIFY(open);
}

void tst_MessageBox::endedWithoutAButton_data()
{
    QTest::addColumn<unsigned>("style");
    for (unsigned style = 0; style < 8; ++style)
        QTest::addRow("type %u", style) << style;
}

void tst_MessageBox::endedWithoutAButton()
{
    QFETCH(unsigned, style);
    for (const int result : {0, 1, 6, 7}) {
        const BoxDriver driver([result](QMessageBox* box) { box->done(result); });
        QCOMPARE(MessageBox_X(nullptr, L"text", nullptr, style), 8);
    }
}

void tst_MessageBox::pressedByEnter()
{
    const BoxDriver driver([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Return); });
    QCOMPARE(MessageBox_X(nullptr, L"text", nullptr, MB_YESNOCANCEL | MB_DEFBUTTON2), 7);
}

// --------------------------------------------------------------------------------------------- icons, captions, owners

void tst_MessageBox::iconAndCaption_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* name, unsigned style, const char* icon, const char* caption) {
        QTest::newRow(name) << style << QString::fromLatin1(icon) << QString::fromUtf8(caption);
    };
    row("no icon is a warning", 0, "warning", "警告");
    row("MB_ICONHAND", MB_ICONHAND, "critical", "严重错误");
    row("MB_ICONQUESTION", MB_ICONQUESTION, "question", "疑问");
    row("MB_ICONEXCLAMATION", MB_ICONEXCLAMATION, "warning", "警告");
    row("MB_ICONINFORMATION", MB_ICONINFORMATION, "information", "提示");
    row("0x50", 0x50, "warning", "警告");
    row("0x60", 0x60, "warning", "警告");
    row("0x70", 0x70, "warning", "警告");
    row("other bits do not count", 0x10 | 0x80 | 0x42000, "critical", "严重错误");
}

void tst_MessageBox::iconAndCaption()
{
    QFETCH(unsigned, style);
    QFETCH(QString, icon);
    QFETCH(QString, caption);
    const wchar_t* const captions[] = {nullptr, L"", L"螺栓 😀"};
    for (const wchar_t* given : captions) {
        Shown shown;
        const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
        MessageBox_X(nullptr, L"长 text 😀", given, style);
        const QString title = given && *given ? QString::fromWCharArray(given) : caption;
        QCOMPARE(shown.text, QStringLiteral("%1 '%2': '长 text 😀' of nobody").arg(icon, title));
    }
}

void tst_MessageBox::nullText()
{
    Shown shown;
    const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
    QCOMPARE(MessageBox_X(nullptr, nullptr, nullptr, 0), 1);
    QCOMPARE(shown.text, QStringLiteral("warning '警告': '' of nobody"));
}

void tst_MessageBox::owner()
{
    EmptyWindow frame("CTavoMainFrame");
    EmptyWindow window("window");
    for (QWidget* owner : {&window, static_cast<EmptyWindow*>(nullptr)}) {
        Shown shown;
        const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
        MessageBox_X(owner, L"text", nullptr, 0);
        QCOMPARE(shown.text, QStringLiteral("warning '警告': 'text' of ")
                                 + (owner ? QStringLiteral("window") : QStringLiteral("CTavoMainFrame")));
    }
}

void tst_MessageBox::ownerGoesWhileTheBoxIsUp()
{
    auto* window = new EmptyWindow("window");
    const BoxDriver driver([window](QMessageBox*) { delete window; });
    QCOMPARE(MessageBox_X(window, L"text", nullptr, MB_YESNO), 8);
}

void tst_MessageBox::member()
{
    EmptyWindow widget("window");
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    Shown shown;
    const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
    QCOMPARE(window.MessageBox(L"text", L"caption", MB_ICONQUESTION | MB_OKCANCEL), 1);
    QCOMPARE(shown.text, QStringLiteral("question 'caption': 'text' of window"));
}

void tst_MessageBox::memberWithoutAWidget()
{
    CWnd_X window;
    QCOMPARE(window.MessageBox(L"text"), 0);
}

// --------------------------------------------------------------------------------------------------- AfxMessageBox_X

void tst_MessageBox::overTheActiveWindow()
{
    EmptyWindow frame("CTavoMainFrame");
    EmptyWindow window("window");
    {
        Shown shown;
        const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
        QCOMPARE(AfxMessageBox_X(L"text"), 1);
        QCOMPARE(shown.text, QStringLiteral("warning '警告': 'text' of CTavoMainFrame"));
    }
    QLineEdit edit(&window);
    window.show();
    edit.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    Shown shown;
    const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
    QCOMPARE(AfxMessageBox_X(L"text", MB_OKCANCEL | MB_ICONHAND, 99), 1);
    QCOMPARE(shown.text, QStringLiteral("critical '严重错误': 'text' of window"));
}

void tst_MessageBox::resourceTextOverTheFocus()
{
    EmptyWindow window("window");
    QLineEdit edit(&window);
    edit.setObjectName(QStringLiteral("edit"));
    window.show();
    edit.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    Shown shown;
    const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
    QCOMPARE(AfxMessageBox_X(IDS_QUESTION, MB_OKCANCEL | MB_ICONQUESTION, 99), 1);
    QCOMPARE(shown.text, QStringLiteral("question '疑问': '删除 the 螺栓 😀?' of edit"));
}

void tst_MessageBox::resourceText_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("text of an id") << unsigned(IDS_QUESTION) << QStringLiteral("删除 the 螺栓 😀?");
    QTest::newRow("empty text") << unsigned(IDS_BLANK) << QString();
    QTest::newRow("id without a text") << unsigned(IDC_NAME) << QString();
    QTest::newRow("unknown id") << 4711u << QString();
}

void tst_MessageBox::resourceText()
{
    QFETCH(unsigned, id);
    QFETCH(QString, text);
    Shown shown;
    const BoxDriver driver([&shown](QMessageBox* box) { shown.take(box); });
    QCOMPARE(AfxMessageBox_X(id), 1);
    QCOMPARE(shown.text, QStringLiteral("warning '警告': '%1' of nobody").arg(text));
}

XE_TEST(tst_MessageBox)
#include "tst_messagebox.moc"
