#pragma once

#include <xeafxddx.h>
#include <xeafxdlg.h>

#include <functional>

/// A dialog whose form, data exchange and start are written in the test. It writes down the steps of its life.
class ScriptDialog : public CDialog_X
{
public:
    using CDialog_X::CDialog_X;

    std::function<void(QDialog*)> form;
    std::function<void(CDataExchange_X*)> exchange;
    std::function<BOOL()> start; ///< in place of the base's OnInitDialog()
    int createResult = 0;
    QStringList steps;

    /// The steps so far as one line, and starts anew.
    QString takeSteps() { return std::exchange(steps, {}).join(QLatin1Char(' ')); }

    int OnCreate(tagCREATESTRUCTW* createStruct) override
    {
        steps += QStringLiteral("OnCreate");
        const int result = CDialog_X::OnCreate(createStruct);
        return createResult ? createResult : result;
    }
    void SetupUI() override
    {
        steps += QStringLiteral("SetupUI");
        if (form)
            form(Imp<QDialog>());
    }
    BOOL OnInitDialog() override
    {
        steps += QStringLiteral("OnInitDialog");
        return start ? start() : CDialog_X::OnInitDialog();
    }
    void ConnectSlotsFrom(QObject* from, bool keep) override
    {
        steps += QStringLiteral("ConnectSlotsFrom");
        CDialog_X::ConnectSlotsFrom(from, keep);
    }
    void OnMessageMap() override
    {
        steps += QStringLiteral("OnMessageMap");
        CDialog_X::OnMessageMap();
    }
    void DoDataExchange(CDataExchange_X* dataExchange) override
    {
        if (exchange)
            exchange(dataExchange);
    }
    void OnOK() override
    {
        steps += QStringLiteral("OnOK");
        CDialog_X::OnOK();
    }
    void OnCancel() override
    {
        steps += QStringLiteral("OnCancel");
        CDialog_X::OnCancel();
    }
    int DestroyWindow() override
    {
        steps += QStringLiteral("DestroyWindow");
        return CDialog_X::DestroyWindow();
    }
    void PostNcDestroy() override { steps += QStringLiteral("PostNcDestroy"); }
};
