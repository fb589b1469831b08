#include "testclass.h"

#include <XeCustomUI.h>

Q_DECLARE_METATYPE(const QMetaObject*)

class tst_CustomUi : public QObject
{
    Q_OBJECT

private slots:
    void metaObjects_data();
    void metaObjects();
    void textConstructors();
    void spinBoxesGiveTheirField();
    void comboBoxTakesAField();
};

void tst_CustomUi::metaObjects_data()
{
    QTest::addColumn<const QMetaObject*>("type");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<const QMetaObject*>("base");

    QTest::newRow("line edit") << &XeCUILineEdit::staticMetaObject << QByteArray("XeCUILineEdit")
                               << &QLineEdit::staticMetaObject;
    QTest::newRow("spin box") << &XeCUISpinBox::staticMetaObject << QByteArray("XeCUISpinBox")
                              << &QSpinBox::staticMetaObject;
    QTest::newRow("double spin box") << &XeCUIDoubleSpinBox::staticMetaObject << QByteArray("XeCUIDoubleSpinBox")
                                     << &QDoubleSpinBox::staticMetaObject;
    QTest::newRow("combo box") << &XeCUIComboBox::staticMetaObject << QByteArray("XeCUIComboBox")
                               << &QComboBox::staticMetaObject;
    QTest::newRow("text edit") << &XeCUITextEdit::staticMetaObject << QByteArray("XeCUITextEdit")
                               << &QTextEdit::staticMetaObject;
    QTest::newRow("label") << &XeCUILabel::staticMetaObject << QByteArray("XeCUILabel") << &QLabel::staticMetaObject;
}

void tst_CustomUi::metaObjects()
{
    QFETCH(const QMetaObject*, type);
    QFETCH(QByteArray, name);
    QFETCH(const QMetaObject*, base);

    QCOMPARE(QByteArray(type->className()), name);
    QCOMPARE(type->superClass(), base);
}

void tst_CustomUi::textConstructors()
{
    QWidget parent;
    auto* edit = new XeCUILineEdit(QStringLiteral("line"), &parent);
    auto* text = new XeCUITextEdit(QStringLiteral("lines"), &parent);
    auto* label = new XeCUILabel(QStringLiteral("label"), &parent);

    QCOMPARE(edit->text(), QStringLiteral("line"));
    QCOMPARE(text->toPlainText(), QStringLiteral("lines"));
    QCOMPARE(label->text(), QStringLiteral("label"));
    QCOMPARE(parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(), 3);
}

template <typename SpinBox>
static void checkField()
{
    SpinBox box;
    QVERIFY(box.lineEdit());

    auto* field = new XeCUILineEdit;
    box.setLineEdit(field);
    QCOMPARE(box.lineEdit(), field);
    QCOMPARE(field->parentWidget(), &box);

    box.setValue(7);
    QCOMPARE(field->text(), box.text());
}

void tst_CustomUi::spinBoxesGiveTheirField()
{
    checkField<XeCUISpinBox>();
    checkField<XeCUIDoubleSpinBox>();
}

void tst_CustomUi::comboBoxTakesAField()
{
    XeCUIComboBox box;
    QVERIFY(!box.lineEdit());

    auto* field = new XeCUILineEdit;
    box.setLineEdit(field);
    QVERIFY(box.isEditable());
    QCOMPARE(box.lineEdit(), field);
}

XE_TEST(tst_CustomUi)
#include "tst_customui.moc"
