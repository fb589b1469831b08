#pragma once

#include <XeMFCEmu.h>

#include <QStringList>

#include <functional>

inline constexpr UINT question = WM_USER + 1;

/// Writes down the steps of its attachment, and refuses at one of them if told so.
template <class Base>
class Witness : public Base
{
public:
    using Base::Base;

    void SetupUI() override
    {
        log += QStringLiteral("SetupUI");
        if (setup)
            setup();
    }
    int OnCreate(tagCREATESTRUCTW* createStruct) override
    {
        log += QStringLiteral("OnCreate");
        createStructs.append(*createStruct);
        answers += this->SendMessage(question);
        const int base = Base::OnCreate(createStruct);
        answers += this->SendMessage(question);
        return createAnswer ? createAnswer : base;
    }
    void ConnectSlotsFrom(QObject* from, bool keep) override
    {
        log += QStringLiteral("ConnectSlotsFrom(%1, %2)").arg(from == this->GetSafeHwnd() ? "imp" : "?").arg(keep);
        answers += this->SendMessage(question);
        Base::ConnectSlotsFrom(from, keep);
    }
    void OnMessageMap() override
    {
        log += QStringLiteral("OnMessageMap");
        Base::OnMessageMap();
        using ThisClass = Witness;
        ON_MESSAGE_X(question, onQuestion)
    }
    void PreSubclassWindow() override { log += QStringLiteral("PreSubclassWindow"); }
    LRESULT onQuestion(WPARAM, LPARAM) { return 7; }

    QString take() { return std::exchange(log, {}).join(QLatin1Char(' ')); }

    QStringList log;
    QVector<tagCREATESTRUCTW> createStructs;
    QVector<LRESULT> answers;
    std::function<void()> setup;
    int createAnswer = 0;
};

using WitnessWindow = Witness<CWnd_X>;

/// The three forms of Create.
using CreateForm = int (*)(CWnd_X& window, QWidget* parent);
inline const QVector<QPair<const char*, CreateForm>> forms = {
    {"parent", [](CWnd_X& window, QWidget* parent) { return window.Create(parent); }},
    {"style", [](CWnd_X& window, QWidget* parent) { return window.Create(WS_CHILD, parent); }},
    {"rectangle",
     [](CWnd_X& window, QWidget* parent) { return window.Create(WS_CHILD, CRect(10, 20, 110, 70), parent); }},
};

Q_DECLARE_METATYPE(CreateForm)
