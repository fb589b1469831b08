#include "plugin.h"

#include "inquirywindow.h"

namespace {

// Each lookup is the last thing its function does.
class LookingPlugin final : public Plugin
{
public:
    QString module() const override { return GetPlxResourceName(); }
    QString objectName(int id) const override { return GetObjectNameById(id); }
    QString stringId(unsigned id) const override { return ToStringId(id); }
    int ctrlId(const QString& name) const override { return ToCtrlId(name); }
    QString text(unsigned id) const override { return GetResourceStringById(id); }
    int loadString(unsigned id, wchar_t* buffer, int capacity) const override
    {
        return LoadString_X(nullptr, id, buffer, capacity);
    }
    BOOL loadString(CString_X& text, unsigned id) const override { return text.LoadString(id); }
    const QMap<unsigned, QString>& ids() const override { return GetResourceIDMap(); }
    const QMap<QString, QString>& texts() const override { return GetStringResourceTable(); }
    bool connectById(unsigned id, QObject* root, QAction* receiver) const override
    {
        return CObject_X::Connect(id, SIGNAL(triggered()), receiver, SLOT(trigger()), root);
    }
    QWidget* window() override { return m_window.widget(); }

private:
    InquiryWindow m_window;
};

} // namespace

extern "C" Q_DECL_EXPORT Plugin* createPlugin() { return new LookingPlugin; }
