#pragma once

#include <xeafxarc.h>
#include <xeafxfile.h>

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

/// Bytes from a text such as "04 03 FF".
inline QByteArray bytes(const char* hex) { return QByteArray::fromHex(hex); }

inline QString hex(const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex(' ').toUpper()); }

/// A file in a QByteArray that lends nothing, writes down what is asked of it, and reads at most `step` bytes at once.
class SlowFile : public CFile_X
{
public:
    explicit SlowFile(QByteArray bytes = {}, unsigned pieces = ~0U, bool isBlocking = false)
        : content(std::move(bytes)),
          step(pieces),
          blocking(isBlocking)
    {}

    unsigned long long GetPosition() const override { return position; }
    unsigned long long GetLength() const override { return static_cast<unsigned long long>(content.size()); }
    CString_X GetFilePath() const override { return L"/slow"; }
    unsigned GetBufferPtr(unsigned command, unsigned, void**, void**) override
    {
        return command == bufferCheck && blocking ? 2 : 0;
    }
    unsigned long long Seek(long long offset, unsigned from) override
    {
        calls += QStringLiteral("Seek %1 from %2").arg(offset).arg(from);
        return position = static_cast<unsigned long long>(static_cast<long long>(position) + offset);
    }
    unsigned Read(void* buffer, unsigned count) override
    {
        calls += QStringLiteral("Read %1").arg(count);
        const auto left = position < GetLength() ? static_cast<unsigned>(GetLength() - position) : 0;
        const unsigned length = std::min({count, left, step});
        std::memcpy(buffer, content.constData() + position, length);
        position += length;
        return length;
    }
    void Write(const void* buffer, unsigned count) override
    {
        calls += QStringLiteral("Write %1").arg(count);
        content.append(static_cast<const char*>(buffer), static_cast<int>(count));
        position += count;
    }
    void Flush() override { calls += QStringLiteral("Flush"); }

    /// The calls since the last question.
    QString takeCalls() { return std::exchange(calls, {}).join(QStringLiteral(", ")); }

    QByteArray content;
    unsigned step;
    bool blocking;
    unsigned long long position = 0;
    QStringList calls;
};

/// An archive that shows its fields.
class OpenArchive : public CArchive_X
{
public:
    using CArchive_X::blocking;
    using CArchive_X::bufferEnd;
    using CArchive_X::bufferSize;
    using CArchive_X::bufferStart;
    using CArchive_X::CArchive_X;
    using CArchive_X::cursor;
    using CArchive_X::directBuffer;
    using CArchive_X::userBuffer;
};

/// A kind of file under an archive, with bytes in it or to be filled. The kinds on disk have one file for all.
class Stage
{
public:
    static QStringList loadingKinds()
    {
        return {"direct",
                "direct in small steps",
                "block",
                "disk",
                "user buffer",
                "short reads of 1",
                "short reads of 3",
                "short reads of 127",
                "blocking",
                "blocking, short reads of 1"};
    }
    static QStringList storingKinds() { return {"direct", "direct in small steps", "disk", "user buffer", "slow"}; }

    explicit Stage(const QString& kind, const QByteArray& content = {}) : m_userBuffer(kind == "user buffer" ? 150 : 0)
    {
        m_block = content;
        if (kind.startsWith("direct")) {
            file.reset(new CMemFile_X(kind == "direct" ? 1024 : 7));
            file->Write(content.constData(), static_cast<unsigned>(content.size()));
            file->SeekToBegin();
        } else if (kind == "block") {
            file.reset(new CMemFile_X(reinterpret_cast<unsigned char*>(m_block.data()),
                                      static_cast<unsigned>(m_block.size())));
        } else if (kind == "disk" || kind == "user buffer") {
            static const QTemporaryDir folder; // made once, as it takes the most time
            CFile_X::Remove(CString_X(folder.filePath("file")));
            file.reset(new CFile_X(CString_X(folder.filePath("file")), CFile_X::modeReadWrite));
            file->Write(content.constData(), static_cast<unsigned>(content.size()));
            file->Imp<QFile>()->seek(0);
        } else {
            const int of = kind.indexOf("of ");
            file.reset(new SlowFile(content, of < 0 ? ~0U : kind.mid(of + 3).toUInt(), kind.startsWith("blocking")));
        }
    }

    std::unique_ptr<CArchive_X> archive(unsigned mode)
    {
        const bool given = !m_userBuffer.empty();
        return std::make_unique<CArchive_X>(file.get(), mode, given ? static_cast<int>(m_userBuffer.size()) : 128,
                                            given ? m_userBuffer.data() : nullptr);
    }

    /// Everything in the file.
    QByteArray content() const
    {
        if (auto* slow = dynamic_cast<SlowFile*>(file.get()))
            return slow->content;
        QByteArray all(static_cast<int>(file->GetLength()), '\0');
        if (file->IsKindOf(RUNTIME_CLASS_X(CMemFile_X)))
            file->SeekToBegin();
        else
            file->Imp<QFile>()->seek(0);
        all.truncate(static_cast<int>(file->Read(all.data(), static_cast<unsigned>(all.size()))));
        return all;
    }

    std::unique_ptr<CFile_X> file;

private:
    std::vector<unsigned char> m_userBuffer;
    QByteArray m_block;
};

/// What an archive stores.
inline QByteArray stored(const std::function<void(CArchive_X&)>& store)
{
    SlowFile file;
    CArchive_X archive(&file, CArchive_X::store);
    store(archive);
    archive.Close();
    return file.content;
}

/// Lets an archive load from bytes.
template <class Load>
auto loaded(const QByteArray& content, Load load)
{
    SlowFile file(content);
    CArchive_X archive(&file, CArchive_X::load);
    return load(archive);
}

/// Bytes of which each tells where it stands.
inline QByteArray pattern(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    return bytes;
}

/// A data row a kind of file.
inline void addKinds(const QStringList& kinds)
{
    QTest::addColumn<QString>("kind");
    for (const QString& kind : kinds)
        QTest::newRow(kind.toUtf8().constData()) << kind;
}
