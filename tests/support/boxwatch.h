#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QLatin1String>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QStringLiteral>
#include <QTest>
#include <QTimer>

#include <utility>

/// Closes each message box that comes up, and writes it down as "title: text". It is content with none.
class BoxWatch : public QObject
{
public:
    BoxWatch() { qApp->installEventFilter(this); }

    /// The boxes that the event queue holds, and those before, as one line; starts anew.
    QString take()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(m_boxes, {}).join(QLatin1String(", "));
    }

protected:
    bool eventFilter(QObject* target, QEvent* event) override
    {
        auto* const box = event->type() == QEvent::Polish ? qobject_cast<QMessageBox*>(target) : nullptr;
        if (box) {
            if (QGuiApplication::platformName() == QLatin1String("offscreen"))
                QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
            QTimer::singleShot(0, box, [this, box] {
                m_boxes += box->windowTitle() + QStringLiteral(": ") + box->text();
                box->done(0);
            });
        }
        return false;
    }

private:
    QStringList m_boxes;
};
