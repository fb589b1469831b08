// Random files and values: this library and QSettings read the same entries and write the same bytes.

#include "profilefile.h"
#include "testclass.h"

#include <QSettings>

#include <random>

namespace {

constexpr int rounds = 300;

class Random
{
public:
    int below(int end) { return static_cast<int>(m_engine() % static_cast<unsigned>(end)); }

    QString text(const QString& letters)
    {
        QString text;
        for (int count = below(8); count > 0; --count)
            text += letters.at(below(letters.size()));
        return text;
    }

private:
    std::mt19937 m_engine{1};
};

// Pieces that mean something to a reader, in a section's first entry.
QByteArray randomFile(Random& random)
{
    static const QByteArrayList pieces{"[",
                                       "]",
                                       "[s]",
                                       "[t]",
                                       "[General]",
                                       "[%General]",
                                       "[a/b]",
                                       "\n",
                                       "\n",
                                       "\n",
                                       "\r\n",
                                       "\r",
                                       "=",
                                       "=",
                                       "k",
                                       "l",
                                       "a\\b",
                                       "%20",
                                       "%U4E2D",
                                       "%",
                                       "%Z",
                                       "\\",
                                       "\\x41",
                                       "\\x",
                                       "\\101",
                                       "\\n",
                                       "\\\"",
                                       "\"",
                                       "\"",
                                       ",",
                                       ",",
                                       " ",
                                       " ",
                                       "\t",
                                       ";",
                                       "v",
                                       "abc",
                                       "1",
                                       "@",
                                       "@@",
                                       "@ByteArray(",
                                       ")",
                                       "@Rect(1 2 3 4)",
                                       "@Rect(1 2)",
                                       "@Size(1 2)",
                                       "@Point(3 -4)",
                                       "@Invalid()",
                                       "@String(a)",
                                       "@Variant(\\0\\0\\0\\x2\\0\\0\\0\\x5)",
                                       "@Variant(\\0\\0\\0\\t\\0\\0\\0\\0)",
                                       "\xC3\xA9",
                                       "\xE9",
                                       "\xF0\x9F\x98\x80",
                                       "\\q",
                                       "\\8",
                                       "\\xd83d\\xde00",
                                       QByteArray("\0", 1)};
    QByteArray file("[s]\nk=");
    for (int count = random.below(25); count >= 0; --count)
        file += pieces.at(random.below(pieces.size()));
    return file;
}

std::wstring wide(const QString& text) { return text.toStdWString(); }

} // namespace

class tst_ProfileFormat : public QObject
{
    Q_OBJECT

private slots:
    void readsAsQSettings();
    void writesAsQSettings();
    void keepsWhatOthersWrote();
};

void tst_ProfileFormat::readsAsQSettings()
{
    Random random;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray bytes = randomFile(random);
        const ProfileFile ours(bytes);
        const ProfileFile theirs(bytes); // objects of one file would share their entries
        QSettings settings(theirs.name(), QSettings::IniFormat);
        settings.setIniCodec("UTF-8");
        const QStringList names = settings.allKeys();
        for (const QString& name : names) {
            const QString section = name.section('/', 0, 0);
            const QString key = name.section('/', 1);
            if (key.isEmpty() || name.contains("//") || name.endsWith('/') || name.contains(QChar::Null))
                continue; // no path leads there
            const QString text = settings.value(name, "default").toString();
            QCOMPARE(textOf(wide(section).c_str(), wide(key).c_str(), ours), std::wstring(wide(text).c_str()));
        }
    }
}

void tst_ProfileFormat::writesAsQSettings()
{
    const QString letters = QStringLiteral("abZ07fg \\\",;=@()%\n\r\t\x01\x1F\x7F\u00E9\u4E2D[]_-.\a\v") + QChar(0x80);
    Random random;
    const ProfileFile ours("[s]\nk=v\n");
    const ProfileFile theirs("[s]\nk=v\n");
    for (int round = 0; round < rounds / 5; ++round) {
        const QString section = 's' + random.text(letters);
        const QString key = 'k' + random.text(letters);
        const QString value = random.text(letters);
        QCOMPARE(WritePrivateProfileString_X(wide(section).c_str(), wide(key).c_str(), wide(value).c_str(), ours),
                 TRUE);
        QSettings settings(theirs.name(), QSettings::IniFormat);
        settings.setIniCodec("UTF-8");
        settings.setValue(section + '/' + key, value);
        settings.sync();
        QCOMPARE(ours.bytes(), theirs.bytes());
        QCOMPARE(textOf(wide(section).c_str(), wide(key).c_str(), ours), wide(value));
    }
}

// All kinds of values that QSettings has a form for survive a write of this library.
void tst_ProfileFormat::keepsWhatOthersWrote()
{
    const ProfileFile file("");
    const QVariantMap values{{"bytes", QByteArray("\0a\xFF,b", 5)},
                             {"list", QStringList{"a", "@b", ""}},
                             {"mixed", QVariantList{1, "x", QPoint(1, 2)}},
                             {"lone", QVariantList{"x"}},
                             {"none", QStringList()},
                             {"nothing", QVariant()},
                             {"number", -5},
                             {"real", 1.5},
                             {"truth", true},
                             {"point", QPoint(1, -2)},
                             {"size", QSize(3, 4)},
                             {"rect", QRect(1, 2, 3, 4)},
                             {"date", QDateTime(QDate(2020, 2, 29), QTime(12, 0), Qt::UTC)},
                             {"map", QVariantMap{{"a", 1}}},
                             {"zero", QString(1, QChar::Null)},
                             {"long", QVariantList{QVariantList(QVector<QVariant>(2000, 7).toList())}}};
    {
        QSettings settings(file.name(), QSettings::IniFormat);
        settings.setIniCodec("UTF-8");
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            settings.setValue("s/" + value.key(), value.value());
    }
    const QByteArray before = file.bytes();
    QCOMPARE(WritePrivateProfileString_X(L"t", L"k", L"v", file), TRUE);
    QCOMPARE(file.bytes(), before + "\n[t]\nk=v\n");

    const ProfileFile copy(file.bytes());
    QCOMPARE(WritePrivateProfileString_X(L"t", L"k", L"w", copy), TRUE);
    QCOMPARE(copy.bytes(), before + "\n[t]\nk=w\n");
}

XE_GUILESS_TEST(tst_ProfileFormat)
#include "tst_profileformat.moc"
