#pragma once

#include <xeafxddx.h>
#include <xeafxwin.h>

#include <functional>

/// A window whose data exchange is written in the test.
class ExchangeWindow : public CWnd_X
{
public:
    using Exchange = std::function<void(CDataExchange_X*)>;

    explicit ExchangeWindow(QWidget* widget) { SubclassWindow(widget); }

    int load(Exchange exchange) { return run(std::move(exchange), FALSE); }
    int save(Exchange exchange) { return run(std::move(exchange), TRUE); }

    void DoDataExchange(CDataExchange_X* exchange) override { m_exchange(exchange); }

private:
    int run(Exchange exchange, BOOL saveAndValidate)
    {
        m_exchange = std::move(exchange);
        return UpdateData(saveAndValidate);
    }

    Exchange m_exchange;
};
