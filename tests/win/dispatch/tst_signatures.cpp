#include "handlerprobe.h"
#include "testclass.h"

#include <leavenothing.h>

#include <limits>

// Every signature code: what its handlers are called with, and what becomes of their results. The message is given to
// OnWndMsg() itself.

namespace {

// The table of codes. Arguments in the symbols of an independent reading, argumentText() below.

enum class Result { Int32, Unsigned32, Int64, Zero, One, ZeroPassesUp, NonzeroPassesUp };

struct Signature
{
    unsigned long code;
    const char* firstArguments;
    const char* secondArguments; // null: a second handler is never called
    Result result;
    Handlers handlers;
};

const QVector<Signature>& signatures()
{
    using R = Result;
    static const QVector<Signature> table = {
        {2, "P", nullptr, R::Int32, handlers<int(WPARAM)>()},
        {3, "P", nullptr, R::Int32, handlers<int(WPARAM)>()},
        {4, "P", nullptr, R::Int32, handlers<int(WPARAM)>()},
        {28, "@P", nullptr, R::Int32, handlers<BOOL(QWidget*)>()},
        {5, "@P LL LH", "WP LL LH", R::Int32, handlers<BOOL(QWidget*, UINT, UINT), BOOL(CWnd_X*, UINT, UINT)>()},
        {12, "@P LL LH", "WP LL LH", R::Int32, handlers<BOOL(QWidget*, UINT, UINT), BOOL(CWnd_X*, UINT, UINT)>()},
        {6, "@P @L", "WP @L", R::Int32,
         handlers<BOOL(QWidget*, tagCREATESTRUCTW*), BOOL(CWnd_X*, tagCREATESTRUCTW*)>()},
        {7, "@L", nullptr, R::Int32, handlers<int(wchar_t*)>()},
        {13, "@L", nullptr, R::Int32, handlers<int(tagCREATESTRUCTW*)>()},
        {87, "L", nullptr, R::Int32, handlers<int(LPARAM)>()},
        {10, "PL @L PH", "PL WL PH", R::Int32, handlers<int(UINT, QWidget*, UINT), int(UINT, CWnd_X*, UINT)>()},
        {11, "PL PH", nullptr, R::Int32, handlers<int(UINT, UINT)>()},
        {14, "P L", nullptr, R::Int64, handlers<LRESULT(WPARAM, LPARAM)>()},
        {92, "P L", nullptr, R::Int64, handlers<LRESULT(WPARAM, LPARAM)>()},
        {16, "P L", nullptr, R::Zero, handlers<void(WPARAM, LPARAM)>()},
        {18, "P @L", nullptr, R::Zero, handlers<void(WPARAM, void*)>()},
        {31, "P @L", nullptr, R::Zero, handlers<void(WPARAM, void*)>()},
        {46, "P @L", nullptr, R::Zero, handlers<void(WPARAM, tagSTYLESTRUCT*)>()},
        {51, "P @L", nullptr, R::Zero, handlers<void(WPARAM, tagRECT*)>()},
        {77, "P @L", nullptr, R::Zero, handlers<LRESULT(WPARAM, void*)>()},
        {84, "P L", nullptr, R::Zero, handlers<LRESULT(WPARAM, LPARAM)>()},
        {85, "P L", nullptr, R::Zero, handlers<LRESULT(WPARAM, LPARAM)>()},
        {17, "@P", nullptr, R::Zero, handlers<void(HDROP)>()},
        {21, "P", nullptr, R::Zero, handlers<void(UINT_PTR)>()},
        {19, "", nullptr, R::Zero, handlers<void()>()},
        {20, "P32", nullptr, R::Zero, handlers<void(UINT)>()},
        {22, "P L32", nullptr, R::Zero, handlers<void(WPARAM, UINT)>()},
        {83, "P L32", nullptr, R::One, handlers<LRESULT(WPARAM, UINT)>()},
        {93, "@P L32", "WP L32", R::Zero, handlers<void(QWidget*, UINT), void(CWnd_X*, UINT)>()},
        {23, "PL PH", nullptr, R::Zero, handlers<void(UINT, UINT)>()},
        {24, "LL LH", nullptr, R::Zero, handlers<void(int, int)>()},
        {25, "P32 LL LH", nullptr, R::Zero, handlers<void(UINT, UINT, UINT)>()},
        {26, "P32 LL LH", nullptr, R::Zero, handlers<void(UINT, int, int)>()},
        {27, "P @L", "P WL", R::Zero, handlers<void(WPARAM, QWidget*), void(WPARAM, CWnd_X*)>()},
        {29, "@P", nullptr, R::Unsigned32, handlers<UINT(void*)>()},
        {75, "@L", nullptr, R::Unsigned32, handlers<UINT(void*)>()},
        {30, "", nullptr, R::Int32, handlers<BOOL()>()},
        {36, "@P", "WP", R::Zero, handlers<void(QWidget*), void(CWnd_X*)>()},
        {37, "@L", "WL", R::Zero, handlers<void(QWidget*), void(CWnd_X*)>()},
        {38, "@P LL LH", "WP LL LH", R::Zero, handlers<void(QWidget*, UINT, UINT), void(CWnd_X*, UINT, UINT)>()},
        {39, "@P pt", "WP pt", R::Zero, handlers<void(QWidget*, CPoint), void(CWnd_X*, CPoint)>()},
        {40, "@P L", "WP L", R::Zero, handlers<void(QWidget*, LPARAM), void(CWnd_X*, LPARAM)>()},
        {41, "", nullptr, R::Int64, handlers<LRESULT()>()},
        {89, "", nullptr, R::Int64, handlers<LRESULT()>()},
        {42, "PL @L PH", "PL WL PH", R::Zero, handlers<void(UINT, QWidget*, BOOL), void(UINT, CWnd_X*, BOOL)>()},
        {43, "sPL sPH @L", "sPL sPH WL", R::Zero, handlers<void(int, int, QWidget*), void(int, short, CWnd_X*)>()},
        {44, "sPL sPH", nullptr, R::Zero, handlers<void(short, short)>()},
        {45, "L", nullptr, R::Zero, handlers<void(LPARAM)>()},
        {52, "@L", nullptr, R::Zero, handlers<void(tagWINDOWPOS*)>()},
        {47, "P @L", nullptr, R::One, handlers<void(WPARAM, tagMEASUREITEMSTRUCT*)>()},
        {55, "P @L", nullptr, R::One, handlers<LRESULT(WPARAM, tagRECT*)>()},
        {48, "P32 @L", nullptr, R::Int32, handlers<int(UINT, void*)>()},
        {49, "pt", nullptr, R::Unsigned32, handlers<UINT(CPoint)>()},
        {71, "pt", nullptr, R::Int64, handlers<LRESULT(CPoint)>()},
        {50, "", nullptr, R::Unsigned32, handlers<UINT()>()},
        {53, "PL PH @L", nullptr, R::Zero, handlers<void(UINT, UINT, void*)>()},
        {54, "P pt", nullptr, R::Zero, handlers<void(WPARAM, CPoint)>()},
        {95, "P pt", nullptr, R::Zero, handlers<LRESULT(WPARAM, CPoint)>()},
        {56, "PL sPH upt", nullptr, R::ZeroPassesUp, handlers<BOOL(UINT, short, CPoint)>()},
        {57, "PL sPH upt", nullptr, R::Zero, handlers<void(UINT, short, CPoint)>()},
        {70, "", nullptr, R::NonzeroPassesUp, handlers<LRESULT()>()},
        {72, "@P L32", "WP L32", R::Unsigned32, handlers<UINT(QWidget*, UINT), UINT(CWnd_X*, UINT)>()},
        {78, "@P LH&0FFF LH&F000 LL", "WP LH&0FFF LH&F000 LL", R::One,
         handlers<void(QWidget*, UINT, UINT, UINT), void(CWnd_X*, UINT, UINT, UINT)>()},
        {79, "P8 L", nullptr, R::Zero, handlers<void(UINT, LPARAM)>()},
        {80, "P L32", nullptr, R::Unsigned32, handlers<UINT(WPARAM, UINT)>()},
        {94, "P L", nullptr, R::Unsigned32, handlers<UINT(WPARAM, LPARAM)>()},
        {81, "PL PH upt", nullptr, R::One, handlers<void(UINT, UINT, CPoint)>()},
        {82, "PL PH upt", nullptr, R::One, handlers<LRESULT(UINT, UINT, CPoint)>()},
        {90, "P L", nullptr, R::Int64, handlers<LRESULT(WPARAM, LPARAM)>()},
        {91, "LH LL", nullptr, R::Int32, handlers<int(UINT, UINT)>()},
    };
    return table;
}

const QVector<unsigned long> swallowingCodes = {0,
                                                1,
                                                8,
                                                9,
                                                15,
                                                32,
                                                33,
                                                34,
                                                35,
                                                58,
                                                59,
                                                60,
                                                61,
                                                62,
                                                63,
                                                64,
                                                65,
                                                66,
                                                67,
                                                68,
                                                69,
                                                73,
                                                74,
                                                76,
                                                86,
                                                88,
                                                96,
                                                97,
                                                98,
                                                99,
                                                100,
                                                4096,
                                                0x100000002,
                                                0x10000000000000E,
                                                std::numeric_limits<unsigned long>::max()};

QString pointText(qint64 x, qint64 y) { return QStringLiteral("(%1 %2)").arg(x).arg(y); }
QString addressText(quint64 value) { return QStringLiteral("@%1").arg(value, 0, 16); }

// What one symbol of the table stands for. `sXX` is the signed reading, by arithmetic rather than by a cast.
QString argumentText(const QByteArray& symbol, quint64 p, qint64 signedL)
{
    const auto l = static_cast<quint64>(signedL);
    const auto asSigned = [](quint64 word) { return word < 0x8000 ? qint64(word) : qint64(word) - 0x10000; };
    const quint64 pl = p % 0x10000, ph = p / 0x10000 % 0x10000, ll = l % 0x10000, lh = l / 0x10000 % 0x10000;
    const QMap<QByteArray, QString> readings = {
        {"P", QString::number(p)},
        {"L", QString::number(signedL)},
        {"@P", addressText(p)},
        {"@L", addressText(l)},
        {"WP", QStringLiteral("W(%1)").arg(addressText(p))},
        {"WL", QStringLiteral("W(%1)").arg(addressText(l))},
        {"P32", QString::number(p % 0x100000000)},
        {"L32", QString::number(l % 0x100000000)},
        {"P8", QString::number(p % 0x100)},
        {"PL", QString::number(pl)},
        {"PH", QString::number(ph)},
        {"LL", QString::number(ll)},
        {"LH", QString::number(lh)},
        {"LH&0FFF", QString::number(lh % 0x1000)},
        {"LH&F000", QString::number(lh / 0x1000 * 0x1000)},
        {"sPL", QString::number(asSigned(pl))},
        {"sPH", QString::number(asSigned(ph))},
        {"pt", pointText(asSigned(ll), asSigned(lh))},
        {"upt", pointText(qint64(ll), qint64(lh))},
    };
    return readings.value(symbol, QStringLiteral("unknown symbol"));
}

QString callText(const char* which, const char* symbols, quint64 p, qint64 l)
{
    QStringList arguments;
    const QList<QByteArray> list = QByteArray(symbols).split(' ');
    for (const QByteArray& symbol : list) {
        if (!symbol.isEmpty())
            arguments += argumentText(symbol, p, l);
    }
    return QStringLiteral("%1[%2]").arg(QLatin1String(which), arguments.join(QLatin1String(", ")));
}

// Whether the code is handled, and with which result, when the last handler called has answered this.
QString outcomeText(Result result, LRESULT answer)
{
    const auto low = static_cast<quint64>(answer) % 0x100000000;
    const auto as32 = low < 0x80000000 ? qint64(low) : qint64(low) - 0x100000000;
    const auto handled = [](qint64 value) { return QStringLiteral("handled %1").arg(value); };
    switch (result) {
    case Result::Int32:
        return handled(as32);
    case Result::Unsigned32:
        return handled(static_cast<qint64>(low));
    case Result::Int64:
        return handled(answer);
    case Result::Zero:
        return handled(0);
    case Result::One:
        return handled(1);
    case Result::ZeroPassesUp:
        return low == 0 ? QStringLiteral("passed up") : handled(as32);
    case Result::NonzeroPassesUp:
        return answer != 0 ? QStringLiteral("passed up") : handled(0);
    }
    return {};
}

QByteArray codeName(unsigned long code) { return "code " + QByteArray::number(qulonglong(code)); }

} // namespace

Q_DECLARE_METATYPE(Signature)

class tst_Signatures : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void everyCodeIsInOneTable();
    void firstHandler_data();
    void firstHandler();
    void secondHandler_data();
    void secondHandler();
    void resultOfOneHandler_data();
    void resultOfOneHandler();
    void resultOfTwoHandlers_data();
    void resultOfTwoHandlers();
    void nullHandlers_data();
    void nullHandlers();
    void nullResultPointer_data();
    void nullResultPointer();
    void codesWithoutCall_data();
    void codesWithoutCall();

private:
    void addSignatureRows(bool withSecondOnly = false);
};

void tst_Signatures::addSignatureRows(bool withSecondOnly)
{
    QTest::addColumn<Signature>("signature");
    for (const Signature& signature : signatures()) {
        if (signature.secondArguments || !withSecondOnly)
            QTest::newRow(codeName(signature.code)) << signature;
    }
}

void tst_Signatures::everyCodeIsInOneTable()
{
    QVector<unsigned long> codes = swallowingCodes;
    for (const Signature& signature : signatures())
        codes += signature.code;
    std::sort(codes.begin(), codes.end());
    codes.resize(101);
    for (int i = 0; i <= 100; ++i)
        QCOMPARE(codes.at(i), static_cast<unsigned long>(i));
}

void tst_Signatures::firstHandler_data() { addSignatureRows(); }

// Alone, so that window arguments may be any number: nobody asks for their wrapper.
void tst_Signatures::firstHandler()
{
    QFETCH(Signature, signature);
    const QVector<QPair<WPARAM, LPARAM>> parameters = {
        {0, 0},
        {0x0123456789ABCDEF, 0x7E6D5C4B3A291807},
        {0x7152334455667718, 0x1121314151617181},
        {0xF1E2D3C4B5A69788, signed64(0x8F9EADBCCBDAE9F8)},
        {~WPARAM(0), -1},
        {0x00000000FFFF8000, signed64(0xFFFFFFFF80007FFF)},
    };
    HandlerProbe probe;
    const bool single = !signature.secondArguments;
    probe.AddMsgMapEntry(codedMessage, signature.code, signature.handlers.first,
                         single ? signature.handlers.second : nullptr);
    for (const auto& [wParam, lParam] : parameters) {
        probe.OnWndMsg(codedMessage, wParam, lParam, nullptr);
        QCOMPARE(probe.calls(), callText("first", signature.firstArguments, wParam, lParam));
    }
}

void tst_Signatures::secondHandler_data() { addSignatureRows(true); }

void tst_Signatures::secondHandler()
{
    QFETCH(Signature, signature);
    QWidget widget;
    HandlerProbe window;
    QVERIFY(window.SubclassWindow(&widget));
    const bool windowInW = QByteArray(signature.secondArguments).contains("WP");
    const auto address = reinterpret_cast<quintptr>(&widget);
    const WPARAM wParam = windowInW ? address : 0xF1E2D3C4B5A69788;
    const LPARAM lParam = windowInW ? signed64(0x8F9EADBCCBDAE9F8) : static_cast<LPARAM>(address);

    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, signature.code, signature.handlers.first, signature.handlers.second);
    probe.OnWndMsg(codedMessage, wParam, lParam, nullptr);
    QCOMPARE(probe.calls(), callText("first", signature.firstArguments, wParam, lParam) + QLatin1Char(' ')
                                + callText("second", signature.secondArguments, wParam, lParam));
}

void tst_Signatures::resultOfOneHandler_data() { addSignatureRows(); }

void tst_Signatures::resultOfOneHandler()
{
    QFETCH(Signature, signature);
    const QVector<LRESULT> answers = {
        0, 1, 7, -2, 0x7FFFFFFF, 0x80000000, 0x100000000, 0x100000005, signed64(0xFEDCBA9876543210)};
    HandlerProbe probe;
    // The answer fills the whole register; the code says how much of it counts.
    const AFX_PMSG_X handler = MakeHandler<LRESULT()>::first();
    probe.AddMsgMapEntry(codedMessage, signature.code, handler, nullptr);
    for (const LRESULT answer : answers) {
        probe.firstAnswer = answer;
        QCOMPARE(dispatch(probe, 0, 0), outcomeText(signature.result, answer));
        QCOMPARE(probe.calls(), QStringLiteral("first[]"));
    }
}

void tst_Signatures::resultOfTwoHandlers_data() { addSignatureRows(); }

void tst_Signatures::resultOfTwoHandlers()
{
    QFETCH(Signature, signature);
    const bool calledTwice = signature.secondArguments;
    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, signature.code, MakeHandler<LRESULT()>::first(),
                         MakeHandler<LRESULT()>::second());
    probe.firstAnswer = 0x300000004;
    probe.secondAnswer = -5;
    QCOMPARE(dispatch(probe, 0, 0),
             outcomeText(signature.result, calledTwice ? probe.secondAnswer : probe.firstAnswer));
    QCOMPARE(probe.calls(), calledTwice ? QStringLiteral("first[] second[]") : QStringLiteral("first[]"));
}

void tst_Signatures::nullHandlers_data() { addSignatureRows(); }

void tst_Signatures::nullHandlers()
{
    QFETCH(Signature, signature);
    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, signature.code, nullptr, nullptr);
    LRESULT result = unwritten;
    QVERIFY(probe.OnWndMsg(codedMessage, 0xF1E2D3C4B5A69788, -1, &result));
    QVERIFY(result != unwritten);
    QCOMPARE(probe.calls(), QString());
}

void tst_Signatures::nullResultPointer_data() { addSignatureRows(); }

void tst_Signatures::nullResultPointer()
{
    QFETCH(Signature, signature);
    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, signature.code, MakeHandler<LRESULT()>::first(), nullptr);
    probe.firstAnswer = 1;
    QCOMPARE(probe.OnWndMsg(codedMessage, 0, 0, nullptr), signature.result == Result::NonzeroPassesUp ? 0 : 1);
}

void tst_Signatures::codesWithoutCall_data()
{
    QTest::addColumn<unsigned long>("code");
    for (const unsigned long code : swallowingCodes)
        QTest::newRow(codeName(code)) << code;
}

void tst_Signatures::codesWithoutCall()
{
    QFETCH(unsigned long, code);
    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, code, MakeHandler<LRESULT()>::first(), MakeHandler<LRESULT()>::second());
    probe.firstAnswer = 3;
    QCOMPARE(dispatch(probe, 0xF1E2D3C4B5A69788, -1), QStringLiteral("handled 0"));
    QCOMPARE(probe.OnWndMsg(codedMessage, 0, 0, nullptr), 1);
    QCOMPARE(probe.calls(), QString());
}

XE_TEST(tst_Signatures)
#include "tst_signatures.moc"
