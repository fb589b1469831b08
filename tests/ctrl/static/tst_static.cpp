// Static texts and pictures.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <XeCustomUI.h>

namespace {

CString_X textOf(const CWnd_X& window)
{
    CString_X text(L"untouched");
    window.GetWindowText(text);
    return text;
}

QPixmap redSquare()
{
    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    return picture;
}

} // namespace

class tst_Static : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void created();
    void labelsOfAForm();
    void aPictureTakesThePlaceOfTheText();
    void anIconDoesNotAppear();
    void withoutAWidget();
};

void tst_Static::created()
{
    QWidget parent;
    CStatic_X label;
    QCOMPARE(label.Create(L"<b>Stock</b>", WS_VISIBLE | SS_CENTER, CRect(10, 20, 110, 40), &parent, 0xFFFF), 1);
    auto* const widget = qobject_cast<XeCUILabel*>(label.GetSafeHwnd());
    QVERIFY(widget);
    QCOMPARE(widget->geometry(), QRect(10, 20, 100, 20));
    QCOMPARE(widget->text(), QStringLiteral("<b>Stock</b>"));
    QCOMPARE(textOf(label), CString_X(L"<b>Stock</b>"));
    QVERIFY(!widget->isHidden());
}

void tst_Static::labelsOfAForm()
{
    QLabel widget(QStringLiteral("Stock"));
    CStatic_X label;
    QCOMPARE(label.SubclassWindow(&widget), 1);
    QCOMPARE(textOf(label), CString_X(L"Stock"));
    label.SetWindowText(L"库存");
    QCOMPARE(widget.text(), QStringLiteral("库存"));
    SetWindowText_X(&widget, L"Supply");
    QCOMPARE(textOf(label), CString_X(L"Supply"));
    label.SetWindowText(nullptr);
    QCOMPARE(widget.text(), QString());
    QLineEdit edit;
    QCOMPARE(label.SubclassWindow(&edit), 0);
    QCOMPARE(label.GetSafeHwnd(), &widget);
}

void tst_Static::aPictureTakesThePlaceOfTheText()
{
    QLabel widget(QStringLiteral("text"));
    CStatic_X label;
    label.SubclassWindow(&widget);
    QVERIFY(label.GetBitmap().isNull());
    const QPixmap picture = redSquare();
    label.SetBitmap(picture);
    QCOMPARE(label.GetBitmap().cacheKey(), picture.cacheKey());
    QCOMPARE(textOf(label), CString_X());
    widget.resize(8, 8);
    QCOMPARE(widget.grab().toImage().pixelColor(4, 4), QColor(Qt::red));
    label.SetWindowText(L"text");
    QVERIFY(label.GetBitmap().isNull());
}

void tst_Static::anIconDoesNotAppear()
{
    QLabel widget(QStringLiteral("text"));
    CStatic_X label;
    label.SubclassWindow(&widget);
    const QIcon icon(redSquare());
    label.SetIcon(icon);
    QCOMPARE(label.GetIcon().cacheKey(), icon.cacheKey());
    QCOMPARE(widget.windowIcon().cacheKey(), icon.cacheKey());
    QVERIFY(label.GetBitmap().isNull());
    QCOMPARE(textOf(label), CString_X(L"text"));
}

void tst_Static::withoutAWidget()
{
    CStatic_X label;
    label.SetWindowText(L"nobody");
    label.SetBitmap(redSquare());
    QVERIFY(label.GetBitmap().isNull());
    QCOMPARE(textOf(label), CString_X(L"untouched"));
}

XE_TEST(tst_Static)
#include "tst_static.moc"
