#pragma once

#include <XeMFCEmu.h>

#include <QWidget>

constexpr UINT inquiryMessage = WM_USER + 1;

/// A question that goes from window to window.
struct Inquiry
{
    unsigned id;
    QList<QWidget*> route; ///< the windows that have not been asked yet
    QStringList answers;
};

/// A window that answers with the symbolic name before it asks the next window, and with the text afterwards. Each
/// module that compiles it answers from its own tables.
class InquiryWindow : public CWnd_X
{
    Q_OBJECT

public:
    InquiryWindow() { SubclassWindow(&m_widget); }

    QWidget* widget() { return &m_widget; }

    LRESULT OnInquiry(WPARAM, LPARAM lParam)
    {
        auto& inquiry = *reinterpret_cast<Inquiry*>(lParam);
        inquiry.answers += ToStringId(inquiry.id);
        if (!inquiry.route.isEmpty())
            SendMessage_X(inquiry.route.takeFirst(), inquiryMessage, 0, lParam);
        inquiry.answers += GetResourceStringById(inquiry.id);
        return 0;
    }

    void OnMessageMap() override
    {
        using ThisClass = InquiryWindow;
        CWnd_X::OnMessageMap();
        ON_MESSAGE_X(inquiryMessage, OnInquiry)
    }

private:
    QWidget m_widget;
};
