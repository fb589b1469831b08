// The editor of a text by itself: how it opens, which keys it keeps, and how it grows.

#include "editing/texteditor.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QDialog>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>

class tst_InPlaceEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void startValues();
    void look();
    void alignment_data();
    void alignment();
    void opening_data();
    void opening();
    void withoutParent();

    void keyThatStays_data();
    void keyThatStays();
    void characterByCall_data();
    void characterByCall();
    void keyByCallInAnInactiveWindow();
    void heldModifiersDoNotMakeTabs();
    void deferredCharacterOfAnEndedEdit();

    void keysStayInTheEditor_data();
    void keysStayInTheEditor();
    void dialogButtonIsNotPressed();
    void shortcutsOfItsKeysWait();
    void wheelIsLeftToTheGrid();
    void altCharactersGoNowhere();

    void growth();
    void growthByTheClipboard();
};

void tst_InPlaceEdit::startValues()
{
    EditStage stage;
    const Editor by(stage, 'x');
    QCOMPARE(by.editor->m_nRow, 3);
    QCOMPARE(by.editor->m_nCol, 4);
    QCOMPARE(XeQString(by.editor->m_sInitText), QStringLiteral("drill"));
    QCOMPARE(by.editor->m_nLastChar, 0u);
    QCOMPARE(by.editor->m_bExitOnArrows, 1);
    QCOMPARE(by.editor->m_Rect, CRect(20, 30, 80, 50));
    const Editor host(stage, byHost);
    QCOMPARE(host.editor->m_bExitOnArrows, 0);
}

void tst_InPlaceEdit::look()
{
    EditStage stage;
    QFont font(QStringLiteral("DejaVu Sans"), 17);
    font.setItalic(true);
    stage.grid->setFont(font);
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    QVERIFY(by.field->isVisible());
    QVERIFY(by.field->hasFocus());
    QCOMPARE(by.field->parentWidget(), stage.grid);
    QCOMPARE(by.field->geometry(), QRect(20, 30, 60, 20));
    QCOMPARE(by.field->font().toString(), stage.grid->font().toString());
    QVERIFY(!by.field->hasFrame());
    QCOMPARE(by.editor->GetStyle(), 0x50800080u);
}

void tst_InPlaceEdit::alignment_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<int>("alignment");

    QTest::newRow("left") << 0u << 1;
    QTest::newRow("centred") << 1u << 132;
    QTest::newRow("right") << 2u << 2;
    QTest::newRow("both is right") << 3u << 2;
}

void tst_InPlaceEdit::alignment()
{
    QFETCH(unsigned, style);
    EditStage stage;
    const Editor by(stage, byHost, L"drill", style);
    QTEST(static_cast<int>(by.field->alignment()), "alignment");
}

void tst_InPlaceEdit::opening_data()
{
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("caret");

    const QString all = QStringLiteral("drill");
    QTest::newRow("the host") << 1u << all << QString() << 5;
    QTest::newRow("Return") << 13u << all << QString() << 5;
    QTest::newRow("Tab") << 9u << all << all << 5;
    QTest::newRow("Space") << 32u << all << all << 5;
    QTest::newRow("Page Up") << 33u << all << all << 5;
    QTest::newRow("Down") << 40u << all << all << 5;
    QTest::newRow("Backspace takes one character") << 8u << QStringLiteral("dril") << QString() << 4;
    QTest::newRow("a letter replaces all") << unsigned('k') << QStringLiteral("k") << QString() << 1;
    QTest::newRow("a capital") << unsigned('K') << QStringLiteral("K") << QString() << 1;
    QTest::newRow("a digit") << unsigned('7') << QStringLiteral("7") << QString() << 1;
    QTest::newRow("an umlaut") << 0xE4u << QString(QChar(0xE4)) << QString() << 1;
    QTest::newRow("a Chinese character") << 0x4E2Du << QString(QChar(0x4E2D)) << QString() << 1;
    QTest::newRow("above U+FFFF") << 0x1F600u << QString::fromUtf8("\xF0\x9F\x98\x80") << QString() << 2;
}

void tst_InPlaceEdit::opening()
{
    QFETCH(unsigned, ch);
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, ch);
    stage.settle();
    QVERIFY(by.field);
    QTEST(by.field->text(), "text");
    QTEST(by.field->selectedText(), "selected");
    QTEST(by.field->cursorPosition(), "caret");
    QVERIFY(stage.host.ends.isEmpty());
}

void tst_InPlaceEdit::withoutParent()
{
    CRect rect(0, 0, 10, 10);
    CInPlaceEdit_X editor(nullptr, rect, 0, 8, 1, 1, L"x", byHost);
    QVERIFY(!editor.GetSafeHwnd());
    editor.EndEdit();
    editor.OnKeyDown(VK_RETURN, 1, 0);
}

void tst_InPlaceEdit::keyThatStays_data()
{
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caret");

    const QString text = QStringLiteral("drill");
    QTest::newRow("Left, opened by the host") << 1u << int(Qt::Key_Left) << 0 << text << 4;
    QTest::newRow("Up, opened by the host") << 1u << int(Qt::Key_Up) << 0 << text << 5;
    QTest::newRow("Home never ends") << 13u << int(Qt::Key_Home) << 0 << text << 0;
    QTest::newRow("End never ends") << 13u << int(Qt::Key_End) << 0 << text << 5;
    QTest::newRow("Backspace") << 13u << int(Qt::Key_Backspace) << 0 << QStringLiteral("dril") << 4;
    QTest::newRow("Delete") << 1u << int(Qt::Key_Delete) << 0 << text << 5;
    QTest::newRow("a letter") << 1u << int(Qt::Key_S) << 0 << QStringLiteral("drills") << 6;
    QTest::newRow("Insert") << 1u << int(Qt::Key_Insert) << 0 << text << 5;
    QTest::newRow("F2") << 1u << int(Qt::Key_F2) << 0 << text << 5;
}

void tst_InPlaceEdit::keyThatStays()
{
    QFETCH(unsigned, ch);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, ch);
    QTest::keyClick(by.field, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    stage.settle();
    QVERIFY(by.field);
    QTEST(by.field->text(), "text");
    QTEST(by.field->cursorPosition(), "caret");
    QVERIFY(stage.host.ends.isEmpty());
    QVERIFY(stage.host.keys.isEmpty());
}

void tst_InPlaceEdit::characterByCall_data()
{
    QTest::addColumn<unsigned>("character");
    QTest::addColumn<unsigned>("modifiers");
    QTest::addColumn<QStringList>("ends");

    QTest::newRow("Tab") << 9u << 0u << QStringList{QStringLiteral("3,4 'drillx' 9")};
    QTest::newRow("Return") << 13u << 0u << QStringList{QStringLiteral("3,4 'drillx' 13")};
    QTest::newRow("Esc") << 27u << 0u << QStringList{QStringLiteral("3,4 'drill' 27")};
    QTest::newRow("Ctrl and I is no Tab") << 9u << MK_CONTROL << QStringList();
    QTest::newRow("Ctrl and M is no Return") << 13u << MK_CONTROL << QStringList();
    QTest::newRow("Ctrl and [ is no Esc") << 27u << MK_CONTROL << QStringList();
    QTest::newRow("a letter types nothing") << unsigned('a') << 0u << QStringList();
}

void tst_InPlaceEdit::characterByCall()
{
    QFETCH(unsigned, character);
    QFETCH(unsigned, modifiers);
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    by.field->insert(QStringLiteral("x"));
    by.editor->OnChar(character, 1, modifiers);
    QTEST(stage.host.ends, "ends");
}

void tst_InPlaceEdit::keyByCallInAnInactiveWindow()
{
    EditStage stage;
    stage.window.show(); // not active: no focus change tells of the end
    const Editor by(stage);
    stage.window.hide();
    by.editor->OnKeyDown(VK_RETURN, 1, 0);
    QCOMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'drill' 13")});
}

void tst_InPlaceEdit::heldModifiersDoNotMakeTabs()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    QTest::sendKeyEvent(QTest::Press, by.field, Qt::Key_I, QStringLiteral("\t"), Qt::ControlModifier);
    stage.settle();
    QVERIFY(stage.host.ends.isEmpty());
    QCOMPARE(by.field->text(), QStringLiteral("drill"));
}

void tst_InPlaceEdit::deferredCharacterOfAnEndedEdit()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor first(stage);
    QTest::keyClick(first.field, Qt::Key_Return); // its WM_CHAR is still to come
    const Editor second(stage);
    stage.settle();
    QCOMPARE(stage.host.ends.size(), 1);
    QVERIFY(second.field);
    QVERIFY(second.field->hasFocus());
}

// ------------------------------------------------------------------------------------------------- keys that it keeps

void tst_InPlaceEdit::keysStayInTheEditor_data()
{
    QTest::addColumn<int>("key");

    for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_F5, Qt::Key_Menu, Qt::Key_Shift, Qt::Key_A})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
}

void tst_InPlaceEdit::keysStayInTheEditor()
{
    QFETCH(int, key);
    struct KeyWidget : QWidget
    {
        using QWidget::QWidget;
        bool event(QEvent* event) override
        {
            keys += event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
            return QWidget::event(event);
        }
        int keys = 0;
    };
    KeyWidget window;
    CRect rect(0, 0, 60, 20);
    auto* const editor = new CInPlaceEdit_X(&window, rect, 0, 8, 1, 1, L"x", byHost);
    QTest::keyClick(editor->GetSafeHwnd(), static_cast<Qt::Key>(key));
    QCOMPARE(window.keys, 0);
}

void tst_InPlaceEdit::dialogButtonIsNotPressed()
{
    QDialog dialog;
    QPushButton ok(&dialog);
    ok.setDefault(true);
    QSignalSpy clicked(&ok, &QPushButton::clicked);
    QSignalSpy closed(&dialog, &QDialog::finished);
    dialog.show();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        CRect rect(0, 0, 60, 20);
        auto* const editor = new CInPlaceEdit_X(&dialog, rect, 0, 8, 1, 1, L"x", byHost);
        QTest::keyClick(editor->GetSafeHwnd(), key);
        EditStage::settle();
    }
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(closed.count(), 0);
}

void tst_InPlaceEdit::shortcutsOfItsKeysWait()
{
    EditStage stage;
    QShortcut escape(Qt::Key_Escape, &stage.window);
    QShortcut other(Qt::Key_F5, &stage.window);
    QSignalSpy escaped(&escape, &QShortcut::activated);
    QSignalSpy others(&other, &QShortcut::activated);
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_F5);
    QCOMPARE(others.count(), 1);
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Escape);
    QCOMPARE(escaped.count(), 0);
    QCOMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'drill' 27")});
}

void tst_InPlaceEdit::wheelIsLeftToTheGrid()
{
    EditStage stage;
    const Editor by(stage);
    QWheelEvent turn(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    turn.accept();
    QCoreApplication::sendEvent(by.field, &turn);
    QVERIFY(!turn.isAccepted());
}

void tst_InPlaceEdit::altCharactersGoNowhere()
{
    EditStage stage;
    const Editor by(stage);
    tagMSG message{};
    message.message = WM_SYSCHAR;
    QCOMPARE(by.editor->PreTranslateMessage(&message), 1);
    message.message = WM_CHAR;
    QCOMPARE(by.editor->PreTranslateMessage(&message), 0);
    QCOMPARE(by.editor->PreTranslateMessage(nullptr), 0);
}

// -------------------------------------------------------------------------------------------------------------- growth

void tst_InPlaceEdit::growth()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, 'a');
    stage.settle();
    QCOMPARE(by.editor->m_Rect.Width(), 60);
    QTest::keyClicks(by.field, QStringLiteral("bcdefghijklmnop"));
    stage.settle();
    const QString text = QStringLiteral("abcdefghijklmnop  ");
    const int wanted = by.field->fontMetrics().horizontalAdvance(text);
    QCOMPARE(by.editor->m_Rect, CRect(20, 30, 20 + wanted, 50));
    QCOMPARE(by.field->geometry(), QRect(20, 30, wanted, 20));
    QTest::keyClick(by.field, Qt::Key_Home);
    QTest::keyClick(by.field, Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(by.field, 'x');
    stage.settle();
    QCOMPARE(by.field->width(), wanted); // it never shrinks
    by.field->setText(QString(200, QLatin1Char('m')));
    by.editor->OnChar('m', 1, 0);
    QCOMPARE(by.editor->m_Rect, CRect(20, 30, 300, 50)); // as far as the grid goes
}

void tst_InPlaceEdit::growthByTheClipboard()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    by.field->insert(QString(200, QLatin1Char('m')));
    by.field->backspace();
    QTest::keyClick(by.field, Qt::Key_Backspace);
    QCOMPARE(by.field->width(), 280);
}

XE_TEST(tst_InPlaceEdit)

#include "tst_inplaceedit.moc"
