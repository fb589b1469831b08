// The main window, and what a test does with it and with the file of its book.
#pragma once

#include "mainframe.h"
#include "partsview.h"

#include <QAction>
#include <QTemporaryDir>
#include <xeresource.h>

/// The main window on the screen, and a folder for its book.
class BookFrame
{
protected:
    void comeUp(const QString& fileName = "parts.csv");
    void goAway();

    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QAction* command(unsigned id) const { return window()->findChild<QAction*>(ToStringId(id)); }
    QString cell(int row, int column) const { return table().text(row, column); }
    QString status() const;
    QString path() const { return m_path; }
    QByteArray content() const;
    void write(const QByteArray& text) const;
    bool open(const QByteArray& text);
    void updateCommands() { m_frame->OnEnterIdle(); }
    void deleteRow(int row, const QString& answer);

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;

private:
    QString m_path;
};
