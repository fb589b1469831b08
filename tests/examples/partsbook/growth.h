#pragma once

#include <QHash>
#include <QMetaObject>
#include <QString>
#include <QVector>

/// Whether a program that does the same again and again comes to need more and more. It looks at moments at which all
/// is as it was at the beginning: what one of them has more than an earlier one is a cache or a leak, and the least of
/// many of them is nothing but what stays for good.
class Growth
{
public:
    /// Counts QObjects from now on. There is one such object at a time.
    Growth();
    ~Growth();
    Q_DISABLE_COPY_MOVE(Growth)

    /// Writes down what is alive.
    void look();

    /// What the last quarter of the moments has more, at the least, than the second quarter had: more objects, timers
    /// or bytes. Empty if that is nothing, or if the moments are too few to tell.
    QString found() const;
    /// How many moments there were, and what was alive at the last one.
    QString summary() const;

private:
    struct Moment
    {
        int objects;
        int timers;
        long long bytes;
        QHash<const QMetaObject*, int> classes;
    };

    QVector<Moment> m_moments;
    long long m_ownBytes = 0; // what is written down
};
