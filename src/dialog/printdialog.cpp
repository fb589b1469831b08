#include "xeafxdlgs.h"

#include "dialog/droppedprinter.h"

#include <QPainter>
#include <QPointer>
#include <QPrinter>
#include <QPrinterInfo>
#include <QVariant>

namespace {

constexpr char copiesProperty[] = "copyCount";
constexpr char deviceProperty[] = "deviceName";
constexpr char portProperty[] = "portName";
constexpr char driverProperty[] = "driverName";
constexpr char rangeProperty[] = "printRange";
constexpr char collateProperty[] = "bCollate";
constexpr char fromPageProperty[] = "nFromPage";
constexpr char toPageProperty[] = "nToPage";
constexpr char painterProperty[] = "painter";

constexpr DWORD setupFlags = PD_PRINTSETUP | PD_ENABLEPRINTHOOK | PD_ENABLESETUPHOOK; // 0x3040
constexpr DWORD printFlags = PD_RETURNDC | PD_ENABLEPRINTHOOK | PD_ENABLESETUPHOOK;   // 0x3100

QPainter* painterOf(const CPrintDialog_X& dialog)
{
    return reinterpret_cast<QPainter*>(dialog.property(painterProperty).toULongLong());
}

bool hasRange(const CPrintDialog_X& dialog, QPrinter::PrintRange range)
{
    return dialog.property(rangeProperty).toInt() == range;
}

} // namespace

IMPLEMENT_DYNAMIC_X(CPrintDialog_X, CCommonDialog_X)

CPrintDialog_X::CPrintDialog_X(int printSetupOnly, unsigned flags, QWidget* parent)
    : CCommonDialog_X(parent),
      m_pd(m_pdActual)
{
    m_pdActual.lStructSize = sizeof m_pdActual;
    m_pdActual.Flags = (flags | (printSetupOnly ? setupFlags : printFlags)) & ~PD_RETURNIC;
}

CPrintDialog_X::CPrintDialog_X(tagPDW& record) : m_pd(record) {}

CPrintDialog_X::~CPrintDialog_X() { dropPainter(); }

// -------------------------------------------------------------------------------------------------------- the answers

int CPrintDialog_X::GetCopies() const
{
    const QVariant copies = property(copiesProperty);
    return copies.isValid() ? copies.toInt() : 1;
}

CString_X CPrintDialog_X::GetDeviceName() const { return property(deviceProperty).toString(); }

CString_X CPrintDialog_X::GetPortName() const { return property(portProperty).toString(); }

CString_X CPrintDialog_X::GetDriverName() const { return property(driverProperty).toString(); }

BOOL CPrintDialog_X::PrintAll() const { return hasRange(*this, QPrinter::AllPages); }

BOOL CPrintDialog_X::PrintSelection() const { return hasRange(*this, QPrinter::Selection); }

BOOL CPrintDialog_X::PrintRange() const { return hasRange(*this, QPrinter::PageRange); }

BOOL CPrintDialog_X::PrintCollate() const { return property(collateProperty).toBool(); }

int CPrintDialog_X::GetFromPage() const { return property(fromPageProperty).toInt(); }

int CPrintDialog_X::GetToPage() const { return property(toPageProperty).toInt(); }

HDC CPrintDialog_X::GetPrinterDC() const
{
    if (m_painted && !m_painted->paintingActive())
        return nullptr;
    m_painterGiven = true;
    return painterOf(*this);
}

// --------------------------------------------------------------------------------------------------------- the dialog

// The printer goes neither with the dialog, since a painter may be at work on it, nor before it.
bool CPrintDialog_X::AttachDefault(QWidget* parent)
{
    m_printer.reset(new QPrinter, xe::dropPrinter);
    auto* const dialog = new QPrintDialog(m_printer.get(), parent);
    connect(dialog, &QObject::destroyed, dialog, [printer = m_printer] {});
    return Attach(dialog, parent, false);
}

void CPrintDialog_X::OnMessageMap()
{
    CCommonDialog_X::OnMessageMap();
    if (const auto* const dialog = Imp<QPrintDialog>())
        connect(dialog, SIGNAL(accepted()), this, SLOT(OnPrintBtnClicked()), Qt::UniqueConnection);
}

int CPrintDialog_X::DoModal() { return CCommonDialog_X::DoModal(); }

CPrintDialog_X* CPrintDialog_X::AttachOnSetup() { return new CPrintDialog_X(m_pd); }

void CPrintDialog_X::OnPrintSetup()
{
    const QPointer<CPrintDialog_X> setup = AttachOnSetup();
    if (!setup)
        return;
    setup->DoModal();
    if (setup != this)
        delete setup;
}

void CPrintDialog_X::OnPrintBtnClicked()
{
    auto* const dialog = Imp<QPrintDialog>();
    QPrinter* const printer = dialog ? dialog->printer() : nullptr;
    if (!printer)
        return;
    setProperty(copiesProperty, printer->copyCount());
    setProperty(deviceProperty, printer->printerName());
    setProperty(portProperty, printer->outputFileName());
    setProperty(driverProperty, QPrinterInfo::printerInfo(printer->printerName()).description());
    setProperty(rangeProperty, static_cast<int>(printer->printRange()));
    setProperty(collateProperty, printer->collateCopies());
    setProperty(fromPageProperty, printer->fromPage());
    setProperty(toPageProperty, printer->toPage());
    dropPainter();
    if (!(m_pd.Flags & PD_PRINTSETUP))
        beginJob(*printer);
}

// ------------------------------------------------------------------------------------------------------------ the job

void CPrintDialog_X::beginJob(QPrinter& printer)
{
    auto painter = std::make_unique<QPainter>();
    if (!painter->begin(&printer))
        return;
    if (&printer == m_printer.get())
        m_painted = m_printer;
    setProperty(painterProperty, reinterpret_cast<qulonglong>(painter.release()));
}

// One that has been handed out is not this object's any more.
void CPrintDialog_X::dropPainter()
{
    if (QPainter* const painter = painterOf(*this); painter && !m_painterGiven) {
        static_cast<QPrinter*>(painter->device())->abort();
        delete painter;
    }
    m_painterGiven = false;
    m_painted.reset();
    setProperty(painterProperty, {});
}
