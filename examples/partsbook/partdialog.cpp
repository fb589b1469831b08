#include "partdialog.h"
#include "ui_partdialog.h" // ahead of resource.h, whose macros have the names of its members

#include "bookdialogs.h"
#include "control.h"
#include "partexchange.h"
#include "text.h"

#include <QFileInfo>

IMPLEMENT_DYNAMIC_X(CPartDialog, CDialog_X)

CPartDialog::CPartDialog(const CString_X& title, const PartsBook& book, const CPartPictures& pictures, CWnd_X* parent)
    : CDialog_X(IDD_PART, parent),
      m_title(title),
      m_book(book),
      m_pictures(pictures)
{}

// ------------------------------------------------------------------------------------------------------- the window

void CPartDialog::SetupUI()
{
    Ui::CPartDialog().setupUi(Imp<QDialog>());
    setupStyle(GetSafeHwnd());
    control<QSlider>(*this, IDC_MINIMUM).setMaximum(partlimit::minimum);
    control<QSpinBox>(*this, IDC_MINIMUM_SPIN).setMaximum(partlimit::minimum);
    control<QDateEdit>(*this, IDC_DELIVERED).setMinimumDate({partlimit::firstYear, 1, 1});
    control<QListWidget>(*this, IDC_SUPPLIER).addItems(m_book.suppliers());
}

BOOL CPartDialog::OnInitDialog()
{
    SetWindowText(m_title);
    ConnectControls();
    m_tips.Open(*this);
    const BOOL shown = CDialog_X::OnInitDialog();
    OnPictureChanged();
    control<QWidget>(*this, IDC_NUMBER).setFocus(); // and not the tabs
    return shown;
}

void CPartDialog::ConnectControls()
{
    QWidget* const window = GetSafeHwnd();
    Connect(IDC_MINIMUM, SIGNAL(valueChanged(int)), this, SLOT(OnMinimumSlid(int)), window);
    Connect(IDC_MINIMUM_SPIN, SIGNAL(valueChanged(int)), this, SLOT(OnMinimumSpun(int)), window);
    Connect(IDC_DELIVERED, SIGNAL(dateChanged(QDate)), this, SLOT(OnDeliveredChanged()), window);
    Connect(IDC_CALENDAR, SIGNAL(selectionChanged()), this, SLOT(OnDaySelected()), window);
    Connect(IDC_KIND, SIGNAL(currentTextChanged(QString)), this, SLOT(OnPictureChanged()), window);
    Connect(IDC_PICTURE_FILE, SIGNAL(textChanged(QString)), this, SLOT(OnPictureChanged()), window);
    Connect(IDC_CHOOSE_PICTURE, SIGNAL(clicked()), this, SLOT(OnChoosePicture()), window);
}

int CPartDialog::PreTranslateMessage(tagMSG* message)
{
    m_tips.RelayEvent(message);
    return CDialog_X::PreTranslateMessage(message);
}

// What is refused has the focus, but its page may not be the one that is shown.
void CPartDialog::OnOK()
{
    CDialog_X::OnOK();
    const auto* const tabs = m_tabs.Imp<QTabWidget>();
    for (int page = 0; page < m_tabs.GetItemCount(); ++page) {
        if (tabs->widget(page)->isAncestorOf(GetSafeHwnd()->focusWidget()))
            m_tabs.SetCurSel(page);
    }
}

// ----------------------------------------------------------------------------------------------------- the exchange

void CPartDialog::DoDataExchange(CDataExchange_X* exchange)
{
    CDialog_X::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_TABS, m_tabs);
    DDX_Control(exchange, IDC_IN_USE, m_inUse);
    DDX_Control(exchange, IDC_PICTURE, m_picture);
    DDX_Control(exchange, IDC_MINIMUM, m_minimum);
    DDX_Control(exchange, IDC_MINIMUM_SPIN, m_minimumSpin);
    DDX_Control(exchange, IDC_DELIVERED, m_delivered);
    DDX_Control(exchange, IDC_CALENDAR, m_calendar);
    // Into a copy, which counts only if everything passes.
    Part part = m_part;
    ExchangePart(exchange, part);
    ExchangeSupply(exchange, part);
    ExchangeHistory(exchange, part);
    m_part = part;
}

void CPartDialog::ExchangePart(CDataExchange_X* exchange, Part& part)
{
    DDX_Text(exchange, IDC_NUMBER, part.number);
    DDV_MaxChars(exchange, part.number, partlimit::number);
    if (exchange->m_bSaveAndValidate && part.number.IsEmpty())
        exchange->Fail(loadText(IDS_NUMBER_MISSING));
    DDX_Text(exchange, IDC_NAME, part.name);
    DDV_MaxChars(exchange, part.name, partlimit::name);
    DDX_CBString(exchange, IDC_KIND, part.kind);
    DDV_MaxChars(exchange, part.kind, partlimit::kind);
    DDX_Text(exchange, IDC_REMARK, part.remark);
    DDV_MaxChars(exchange, part.remark, partlimit::remark);
    DDX_CheckState(exchange, m_inUse, part.inUse);
    DDX_Text(exchange, IDC_PICTURE_FILE, part.picture);
    DDV_MaxChars(exchange, part.picture, partlimit::picture);
}

void CPartDialog::ExchangeSupply(CDataExchange_X* exchange, Part& part)
{
    DDX_ListText(exchange, IDC_SUPPLIER, part.supplier);
    DDX_Radio(exchange, IDC_BOUGHT, part.source);
    DDX_Text(exchange, IDC_STOCK, part.stock);
    DDV_MinMaxInt(exchange, part.stock, 0, partlimit::stock);
    DDX_Slider(exchange, IDC_MINIMUM, part.minimum);
    DDX_Text(exchange, IDC_PRICE, part.price);
    DDV_MinMaxDouble(exchange, part.price, 0, partlimit::price);
}

void CPartDialog::ExchangeHistory(CDataExchange_X* exchange, Part& part)
{
    BOOL hasDelivery = !part.delivered.IsEmpty();
    DDX_Check(exchange, IDC_HAS_DELIVERY, hasDelivery);
    DDX_Day(exchange, m_delivered, part.delivered);
    if (!hasDelivery)
        part.delivered.Empty();
}

// ----------------------------------------------------------------------------------------- controls that go together

void CPartDialog::OnDeliveredChanged()
{
    _SYSTEMTIME day{};
    m_delivered.GetTime(&day);
    m_calendar.SetCurSel(&day);
}

void CPartDialog::OnDaySelected()
{
    _SYSTEMTIME day{};
    m_calendar.GetCurSel(&day);
    m_delivered.SetTime(&day);
}

QString CPartDialog::Folder() const { return QFileInfo(m_book.fileName()).absolutePath(); }

void CPartDialog::OnPictureChanged()
{
    Part part;
    GetDlgItemText(IDC_KIND, part.kind);
    GetDlgItemText(IDC_PICTURE_FILE, part.picture);
    QPixmap picture = m_pictures.PictureOf(part, Folder());
    const QSize place = m_picture.GetSafeHwnd()->minimumSize() - QSize(12, 12);
    if (picture.size() != picture.size().boundedTo(place))
        picture = picture.scaled(place, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    m_picture.SetBitmap(picture);
}

void CPartDialog::OnChoosePicture()
{
    const CString_X file = askForPicture(*this, Folder());
    if (!file.IsEmpty())
        SetDlgItemText(IDC_PICTURE_FILE, file);
}
