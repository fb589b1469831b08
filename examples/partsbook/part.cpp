#include "part.h"

#include "text.h"

#include <QDate>

#include <tuple>

namespace {

using Words = std::vector<CString_X>;

constexpr CsvFields::size_type fewestFields = 10;

CString_X numberText(int number) { return formatText(L"%d", number); }

auto tied(const Part& part)
{
    return std::tie(part.number, part.name, part.kind, part.supplier, part.source, part.stock, part.minimum, part.price,
                    part.inUse, part.remark, part.delivered, part.picture);
}

// Takes one field after the other, and remembers the first that is wrong.
class FieldReader
{
public:
    explicit FieldReader(const CsvFields& fields) : m_fields(fields) { m_fields.resize(partColumns().size()); }

    void readText(CString_X& value, int limit);
    void readNumber(int& value, int limit);
    void readPrice(double& value, double limit);
    void readWord(int& value, const Words& words);
    void readDay(CString_X& value);
    const CString_X& complaint() const { return m_complaint; }

private:
    const CString_X& take() { return m_fields[m_next++]; }
    template <class... Arguments>
    void check(bool good, unsigned id, const Arguments&... arguments);

    CsvFields m_fields;
    CsvFields::size_type m_next = 0;
    CString_X m_complaint;
};

template <class... Arguments>
void FieldReader::check(bool good, unsigned id, const Arguments&... arguments)
{
    if (!good && m_complaint.IsEmpty())
        m_complaint = partColumns()[m_next - 1] + L": " + formatText(loadText(id), arguments...);
}

void FieldReader::readText(CString_X& value, int limit)
{
    value = take();
    check(XeQString(value).size() <= limit, IDS_TOO_LONG, limit); // line edits count as Qt does
}

void FieldReader::readNumber(int& value, int limit)
{
    bool ok = false;
    value = XeQString(take()).toInt(&ok);
    check(ok && value >= 0 && value <= limit, IDS_NO_NUMBER, 0, limit);
}

void FieldReader::readPrice(double& value, double limit)
{
    bool ok = false;
    value = XeQString(take()).toDouble(&ok);
    check(ok && value >= 0 && value <= limit, IDS_NO_PRICE, limit);
}

void FieldReader::readWord(int& value, const Words& words)
{
    const CString_X& field = take();
    for (value = 0; value < static_cast<int>(words.size()); ++value) {
        if (words[static_cast<std::size_t>(value)].CompareNoCase(field) == 0)
            return;
    }
    check(false, IDS_NO_WORD, field);
}

void FieldReader::readDay(CString_X& value)
{
    const CString_X& field = take();
    const QDate day = QDate::fromString(XeQString(field), Qt::ISODate);
    value = day.toString(Qt::ISODate);
    check(value == field && (field.IsEmpty() || day.year() >= partlimit::firstYear), IDS_NO_DAY, field);
}

} // namespace

const Words& sourceWords()
{
    static const Words words{L"bought", L"made", L"customer"};
    return words;
}

const Words& useWords()
{
    static const Words words{L"no", L"yes", L"ending"};
    return words;
}

bool operator==(const Part& a, const Part& b) { return tied(a) == tied(b); }

const CsvFields& partColumns()
{
    static const CsvFields columns{L"number",  L"name",  L"kind",   L"supplier", L"source",    L"stock",
                                   L"minimum", L"price", L"in use", L"remark",   L"delivered", L"picture"};
    return columns;
}

CString_X priceText(double price)
{
    const CString_X text = formatText(L"%.2f", price);
    return XeQString(text).toDouble() == price ? text : formatText(L"%.6g", price);
}

CsvFields fieldsOf(const Part& part)
{
    CsvFields fields{part.number,
                     part.name,
                     part.kind,
                     part.supplier,
                     sourceWords().at(static_cast<std::size_t>(part.source)),
                     numberText(part.stock),
                     numberText(part.minimum),
                     priceText(part.price),
                     useWords().at(static_cast<std::size_t>(part.inUse)),
                     part.remark,
                     part.delivered,
                     part.picture};
    while (fields.size() > fewestFields && fields.back().IsEmpty())
        fields.pop_back();
    return fields;
}

CString_X readPart(const CsvFields& fields, Part& part)
{
    if (fields.size() < fewestFields || fields.size() > partColumns().size())
        return formatText(loadText(IDS_FIELD_COUNT), static_cast<int>(fields.size()), static_cast<int>(fewestFields),
                          static_cast<int>(partColumns().size()));
    FieldReader reader(fields);
    reader.readText(part.number, partlimit::number);
    reader.readText(part.name, partlimit::name);
    reader.readText(part.kind, partlimit::kind);
    reader.readText(part.supplier, partlimit::supplier);
    reader.readWord(part.source, sourceWords());
    reader.readNumber(part.stock, partlimit::stock);
    reader.readNumber(part.minimum, partlimit::minimum);
    reader.readPrice(part.price, partlimit::price);
    reader.readWord(part.inUse, useWords());
    reader.readText(part.remark, partlimit::remark);
    reader.readDay(part.delivered);
    reader.readText(part.picture, partlimit::picture);
    return part.number.IsEmpty() ? loadText(IDS_NO_PART_NUMBER) : reader.complaint();
}

bool hasText(const Part& part, const CString_X& text, bool matchCase)
{
    const XeQString wanted(text);
    const auto sensitivity = matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (const CString_X* own : {&part.number, &part.name, &part.kind, &part.supplier, &part.remark}) {
        if (XeQString(*own).contains(wanted, sensitivity))
            return true;
    }
    return false;
}
