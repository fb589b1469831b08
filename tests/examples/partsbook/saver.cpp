// Saves a book over and over again, with one part more each time, until somebody kills it.
//
//   saver FILE

#include "partsbook.h"

#include <QString>

#include <cstdio>

int main(int, char** argv)
{
    PartsBook book;
    const QString file = QString::fromLocal8Bit(argv[1]);
    if (!book.load(file))
        return 1;
    while (true) {
        Part part = book.part(0);
        part.number.Format(L"NEW-%d", book.count());
        book.add(part);
        if (!book.saveAs(file))
            return 2;
        std::puts("saved");
        std::fflush(stdout);
    }
}
