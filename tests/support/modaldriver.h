#pragma once

#include <QApplication>
#include <QGuiApplication>
#include <QLatin1String>
#include <QObject>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

/// Acts once on the next `Dialog` that is the active modal widget, from inside its event loop. Whoever makes the driver
/// then does what opens the dialog:
/// @code
/// const ModalDriver<QMessageBox> driver([](QMessageBox* box) { box->accept(); });
/// ask();
/// QVERIFY(driver.hasActed());
/// @endcode
template <class Dialog>
class ModalDriver
{
public:
    using Action = std::function<void(Dialog*)>;

    explicit ModalDriver(Action action) : m_action(std::move(action))
    {
        // The platform says so at each dialog, which has a smallest size.
        if (QGuiApplication::platformName() == QLatin1String("offscreen"))
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(1);
    }
    Q_DISABLE_COPY_MOVE(ModalDriver)

    bool hasActed() const { return !m_timer.isActive(); }

private:
    void look()
    {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
            m_timer.stop();
            m_action(dialog);
        }
    }

    Action m_action;
    QTimer m_timer;
};
