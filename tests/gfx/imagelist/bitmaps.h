// Bitmaps for image lists.
#pragma once

#include <xeafximg.h>

#include <QMap>
#include <QStringList>

inline QImage& pictureOf(const CBitmap_X& bitmap) { return *static_cast<QImage*>(bitmap.GetSafeHandle()); }

/// Bitmaps of one colour each, and one without a picture.
struct Bitmaps
{
    void createAll()
    {
        create(red, Qt::red, 4, 2);
        create(green, Qt::green, 4, 2);
        create(blue, Qt::blue, 3, 5);
    }

    static void create(CBitmap_X& bitmap, const QColor& color, int width, int height)
    {
        bitmap.DeleteObject();
        bitmap.CreateCompatibleBitmap(nullptr, width, height);
        pictureOf(bitmap).fill(color);
    }

    /// The names of a list's bitmaps: "red none".
    QString entries(const CImageList_X& list) const
    {
        const QMap<const CBitmap_X*, QString> names = {{&red, QStringLiteral("red")},
                                                       {&green, QStringLiteral("green")},
                                                       {&blue, QStringLiteral("blue")},
                                                       {&none, QStringLiteral("none")},
                                                       {nullptr, QStringLiteral("null")}};
        QStringList found;
        for (const CBitmap_X* bitmap : list.m_listImages)
            found += names.value(bitmap, QStringLiteral("unknown"));
        return found.join(QLatin1Char(' '));
    }

    CBitmap_X red;
    CBitmap_X green;
    CBitmap_X blue;
    CBitmap_X none;
};
