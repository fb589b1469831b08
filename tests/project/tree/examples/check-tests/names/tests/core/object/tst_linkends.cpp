class tst_EndsOfLinks : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_EndsOfLinks)
#include "tst_endsoflinks.moc"
