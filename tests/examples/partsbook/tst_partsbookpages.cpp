// The pages of the dialog of a part: what mouse and keys do to each kind of control, and which controls go together.

#include "leavenothing.h"
#include "modaldriver.h"
#include "partdialog.h"
#include "resource.h"
#include "testclass.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <xeresource.h>

#include <functional>

namespace {

Part barePart()
{
    Part part;
    part.number = L"BE-6204";
    part.kind = L"Bearing 轴承";
    part.supplier = L"瓦轴";
    part.minimum = 60;
    part.delivered = L"2026-03-31";
    return part;
}

void moveMouse(QWidget* widget, QPoint place, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

} // namespace

class tst_PartsbookPages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tabsShowPages();
    void theBoxHasThreeStates_data();
    void theBoxHasThreeStates();
    void sliderAndSpinBoxGoTogether();
    void theSliderIsDragged();
    void theSupplierIsClicked();
    void theSourceIsClicked();
    void theDayIsTyped();
    void theDayIsClickedInTheCalendar();
    void withoutADelivery();
    void theFirstDeliveryIsToday();
    void thePictureIsThatOfTheKind();
    void thePartsOwnPicture_data();
    void thePartsOwnPicture();
    void tipsAreRelayed_data();
    void tipsAreRelayed();

private:
    using Action = std::function<void()>;
    /// Runs the dialog, and ends it by OK after the action.
    void run(const Action& action);
    template <class Widget>
    Widget* child(unsigned id) const
    {
        return m_window->findChild<Widget*>(ToStringId(id));
    }
    void showPage(int page) const;
    QImage picture() const;

    PartsBook m_book;
    const CPartPictures m_pictures;
    QScopedPointer<CPartDialog> m_dialog;
    QDialog* m_window = nullptr;
};

void tst_PartsbookPages::init()
{
    m_book = PartsBook();
    for (const wchar_t* supplier : {L"瓦轴", L"Kessler"}) {
        Part part;
        part.supplier = supplier;
        m_book.add(part);
    }
    m_dialog.reset(new CPartDialog(L"Part", m_book, m_pictures, nullptr));
    m_dialog->m_part = barePart();
}

void tst_PartsbookPages::cleanup()
{
    m_dialog.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookPages::run(const Action& action)
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()"); // again, for the pages
    const ModalDriver<QDialog> driver([&](QDialog* dialog) {
        m_window = dialog;
        action();
        QTest::mouseClick(dialog->findChild<QPushButton*>("OK"), Qt::LeftButton);
        if (dialog->isVisible())
            dialog->reject(); // it has refused
    });
    QCOMPARE(m_dialog->DoModal(), IDOK);
}

void tst_PartsbookPages::showPage(int page) const
{
    auto* const tabs = m_window->findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(page).center());
}

// ---------------------------------------------------------------------------------------------------------- the pages

void tst_PartsbookPages::tabsShowPages()
{
    run([this] {
        QVERIFY(child<QWidget>(IDC_NUMBER)->isVisible());
        showPage(1);
        QVERIFY(!child<QWidget>(IDC_NUMBER)->isVisible());
        QVERIFY(child<QWidget>(IDC_STOCK)->isVisible());
        QTest::keyClick(child<QWidget>(IDC_STOCK), Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(child<QWidget>(IDC_DELIVERED)->isVisible());
    });
}

void tst_PartsbookPages::theBoxHasThreeStates_data()
{
    QTest::addColumn<int>("clicks");
    QTest::addColumn<int>("use");
    QTest::newRow("as it was") << 0 << int(Part::InUse);
    QTest::newRow("then out of use") << 1 << int(Part::OutOfUse);
    QTest::newRow("then ending") << 2 << int(Part::EndingUse);
    QTest::newRow("then in use again") << 3 << int(Part::InUse);
}

void tst_PartsbookPages::theBoxHasThreeStates()
{
    QFETCH(const int, clicks);
    QFETCH(const int, use);
    run([&] {
        for (int i = 0; i < clicks; ++i)
            QTest::mouseClick(child<QCheckBox>(IDC_IN_USE), Qt::LeftButton, {},
                              {8, child<QCheckBox>(IDC_IN_USE)->height() / 2});
    });
    QCOMPARE(m_dialog->m_part.inUse, use);
}

// --------------------------------------------------------------------------------------------------------- the supply

void tst_PartsbookPages::sliderAndSpinBoxGoTogether()
{
    run([this] {
        showPage(1);
        auto* const slider = child<QSlider>(IDC_MINIMUM);
        auto* const spin = child<QSpinBox>(IDC_MINIMUM_SPIN);
        QCOMPARE(slider->value(), 60);
        QCOMPARE(spin->value(), 60);
        QTest::keyClick(slider, Qt::Key_PageUp);
        QCOMPARE(spin->value(), 110);
        QTest::keyClick(spin, Qt::Key_Up);
        QCOMPARE(slider->value(), 111);
        spin->selectAll();
        QTest::keyClicks(spin, "234");
        QCOMPARE(slider->value(), 234);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(spin->value(), partlimit::minimum);
        QTest::keyClick(spin, Qt::Key_Down);
    });
    QCOMPARE(m_dialog->m_part.minimum, partlimit::minimum - 1);
}

void tst_PartsbookPages::theSliderIsDragged()
{
    run([this] {
        showPage(1);
        auto* const slider = child<QSlider>(IDC_MINIMUM);
        QStyleOptionSlider option;
        option.initFrom(slider);
        option.orientation = Qt::Horizontal;
        option.maximum = slider->maximum();
        option.sliderPosition = option.sliderValue = slider->value();
        const QPoint handle =
            slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider).center();
        QTest::mousePress(slider, Qt::LeftButton, {}, handle);
        const QPoint end(slider->width(), handle.y());
        moveMouse(slider, end, Qt::LeftButton);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, end);
        QCOMPARE(child<QSpinBox>(IDC_MINIMUM_SPIN)->value(), partlimit::minimum);
    });
    QCOMPARE(m_dialog->m_part.minimum, partlimit::minimum);
}

void tst_PartsbookPages::theSupplierIsClicked()
{
    run([this] {
        showPage(1);
        auto* const list = child<QListWidget>(IDC_SUPPLIER);
        QCOMPARE(list->currentItem()->text(), QString("瓦轴"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    });
    QCOMPARE(m_dialog->m_part.supplier, CString_X(L"Kessler"));
}

void tst_PartsbookPages::theSourceIsClicked()
{
    run([this] {
        showPage(1);
        QTest::mouseClick(child<QRadioButton>(IDC_MADE), Qt::LeftButton, {}, {8, 8});
    });
    QCOMPARE(m_dialog->m_part.source, int(Part::Made));
}

// -------------------------------------------------------------------------------------------------------- the history

void tst_PartsbookPages::theDayIsTyped()
{
    run([this] {
        showPage(2);
        auto* const day = child<QDateEdit>(IDC_DELIVERED);
        QCOMPARE(day->date(), QDate(2026, 3, 31));
        QCOMPARE(child<QCalendarWidget>(IDC_CALENDAR)->selectedDate(), QDate(2026, 3, 31));
        day->setCurrentSection(QDateEdit::YearSection);
        QTest::keyClick(day, Qt::Key_Down);
        QCOMPARE(child<QCalendarWidget>(IDC_CALENDAR)->selectedDate(), QDate(2025, 3, 31));
    });
    QCOMPARE(XeQString(m_dialog->m_part.delivered), QString("2025-03-31"));
}

void tst_PartsbookPages::theDayIsClickedInTheCalendar()
{
    run([this] {
        showPage(2);
        auto* const days = child<QCalendarWidget>(IDC_CALENDAR)->findChild<QTableView*>();
        const QModelIndex selected = days->currentIndex(); // Tuesday
        QTest::mouseClick(days->viewport(), Qt::LeftButton, {},
                          days->visualRect(selected.sibling(selected.row() - 1, selected.column() + 1)).center());
        QCOMPARE(child<QDateEdit>(IDC_DELIVERED)->date(), QDate(2026, 3, 25));
    });
    QCOMPARE(XeQString(m_dialog->m_part.delivered), QString("2026-03-25"));
}

void tst_PartsbookPages::withoutADelivery()
{
    run([this] {
        showPage(2);
        auto* const box = child<QCheckBox>(IDC_HAS_DELIVERY);
        QVERIFY(box->isChecked());
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QVERIFY(!child<QWidget>(IDC_DELIVERED)->isEnabled());
        QVERIFY(!child<QWidget>(IDC_CALENDAR)->isEnabled());
    });
    QCOMPARE(m_dialog->m_part.delivered, CString_X());
}

void tst_PartsbookPages::theFirstDeliveryIsToday()
{
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    m_dialog->m_part.delivered.Empty();
    run([this] {
        showPage(2);
        auto* const box = child<QCheckBox>(IDC_HAS_DELIVERY);
        QVERIFY(!box->isChecked());
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QVERIFY(child<QWidget>(IDC_DELIVERED)->isEnabled());
    });
    QVERIFY(XeQString(m_dialog->m_part.delivered) == today
            || XeQString(m_dialog->m_part.delivered) == QDate::currentDate().toString(Qt::ISODate)); // midnight
}

// -------------------------------------------------------------------------------------------------------- the picture

QImage tst_PartsbookPages::picture() const { return child<QLabel>(IDC_PICTURE)->pixmap(Qt::ReturnByValue).toImage(); }

void tst_PartsbookPages::thePictureIsThatOfTheKind()
{
    const auto pictureOf = [this](const wchar_t* kind) {
        Part part;
        part.kind = kind;
        return m_pictures.PictureOf(part, {}).toImage();
    };
    run([&] {
        QCOMPARE(picture(), pictureOf(L"Bearing"));
        QVERIFY(picture() != pictureOf(L"Seal"));
        QTest::keyClick(child<QComboBox>(IDC_KIND), Qt::Key_Down); // the next one of the list
        QCOMPARE(picture(), pictureOf(L"Seal"));
        child<QComboBox>(IDC_KIND)->setFocus();
        child<QComboBox>(IDC_KIND)->lineEdit()->selectAll();
        QTest::keyClicks(child<QComboBox>(IDC_KIND)->lineEdit(), "Optics");
        QCOMPARE(picture(), pictureOf(L"anything else"));
    });
}

void tst_PartsbookPages::thePartsOwnPicture_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QSize>("size");
    QTest::newRow("smaller than its place") << true << QSize(40, 30);
    QTest::newRow("larger") << true << QSize(400, 100);
    QTest::newRow("that cannot be read") << false << QSize(96, 96);
}

void tst_PartsbookPages::thePartsOwnPicture()
{
    QFETCH(const bool, isThere);
    QFETCH(const QSize, size);
    const QTemporaryDir folder;
    QVERIFY(m_book.saveAs(folder.filePath("parts.csv")));
    QImage own(size, QImage::Format_RGB32);
    own.fill(Qt::magenta);
    if (isThere)
        QVERIFY(own.save(folder.filePath("own.png")));
    run([&] {
        QTest::keyClicks(child<QLineEdit>(IDC_PICTURE_FILE), "own.png"); // as seen from the book
        const QSize place = child<QLabel>(IDC_PICTURE)->minimumSize() - QSize(12, 12);
        const QSize fitting = size == size.boundedTo(place) ? size : size.scaled(place, Qt::KeepAspectRatio);
        QCOMPARE(picture().size(), fitting);
        QCOMPARE(picture().pixelColor(picture().rect().center()) == QColor(Qt::magenta), isThere);
    });
    QCOMPARE(m_dialog->m_part.picture, CString_X(L"own.png"));
}

// ----------------------------------------------------------------------------------------------------------- the tips

void tst_PartsbookPages::tipsAreRelayed_data()
{
    QTest::addColumn<unsigned>("control");
    QTest::addColumn<int>("page");
    QTest::addColumn<unsigned>("text");
    QTest::newRow("a field") << unsigned(IDC_NUMBER) << 0 << unsigned(IDS_TIP_NUMBER);
    QTest::newRow("a box") << unsigned(IDC_IN_USE) << 0 << unsigned(IDS_TIP_IN_USE);
    QTest::newRow("a slider") << unsigned(IDC_MINIMUM) << 1 << unsigned(IDS_TIP_SLIDER);
    QTest::newRow("a day") << unsigned(IDC_DELIVERED) << 2 << unsigned(IDS_TIP_DELIVERED);
}

// A field has its tip from the first message of the mouse on.
void tst_PartsbookPages::tipsAreRelayed()
{
    QFETCH(const unsigned, control);
    QFETCH(const int, page);
    QFETCH(const unsigned, text);
    run([&] {
        showPage(page);
        auto* const field = child<QWidget>(control);
        QCOMPARE(field->toolTip(), QString());
        moveMouse(field, {4, 4}, Qt::NoButton);
        QCOMPARE(field->toolTip(), GetResourceStringById(text));
    });
}

XE_TEST(tst_PartsbookPages)
#include "tst_partsbookpages.moc"
