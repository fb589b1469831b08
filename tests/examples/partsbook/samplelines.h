// Lines of the books that the tests open, and what stands in a file.
#pragma once

#include <QByteArray>
#include <QFile>

inline const QByteArray headingLine = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n";
inline const QByteArray screw = "FA-1,Screw 螺钉,Fastener,华丰,bought,10,5,0.06,yes,\n";
inline const QByteArray bearing = "BE-2,Bearing,Bearing,瓦轴,made,3,6,12.50,yes,\n";
inline const QByteArray nut = "FA-3,Nut,Fastener,华丰,bought,20,15,0.06,yes,\n";
inline const QByteArray motor = "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";
inline const QByteArray idleMotor = "EL-3,Motor,Electrical,Kessler,customer,0,0,0.00,no,heavy\n";

inline QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}
