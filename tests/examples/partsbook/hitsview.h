// The list of hits of the search bar, as a user sees it: hits and columns count from 0, the heading does not count.
#pragma once

#include <QImage>
#include <QTest>
#include <XeGridCtrl.h>

class HitsView
{
public:
    explicit HitsView(const QWidget& window)
        : m_widget(window.findChild<QWidget*>("IDC_FIND_HITS")),
          m_grid(static_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(m_widget)))
    {}

    QWidget* widget() const { return m_widget; }
    int rowCount() const { return m_grid->m_nRows - headings; }
    int sortColumn() const { return m_grid->m_nSortColumn; }
    bool isAscending() const { return m_grid->m_bAscending; }
    QImage picture(int row) const
    {
        const auto* const image = m_grid->m_pImageList->ExtractIcon(m_grid->GetItemImage(row + headings, 0));
        return image ? *static_cast<const QImage*>(image) : QImage();
    }

    /// The numbers of the hits.
    QString numbers() const { return text().remove('*'); }
    /// The same, the selected one with a star.
    QString text() const
    {
        QStringList texts;
        for (int row = headings; row < m_grid->m_nRows; ++row)
            texts += (m_grid->IsCellSelected(row, 0) ? "*" : "") + XeQString(m_grid->GetItemText(row, 0));
        return texts.join(", ");
    }
    /// What is in the columns of a hit.
    QString rowText(int row) const
    {
        QStringList texts;
        for (int column = 0; column < m_grid->m_nCols; ++column)
            texts += XeQString(m_grid->GetItemText(row + headings, column));
        return texts.join(", ");
    }

    QPoint center(int row, int column) const
    {
        CRect rect;
        m_grid->GetCellRect(row + headings, column, &rect);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    void click(int row) const { QTest::mouseClick(m_widget, Qt::LeftButton, {}, center(row, 1)); }
    void clickHeading(int column) const { QTest::mouseClick(m_widget, Qt::LeftButton, {}, center(-1, column)); }

private:
    static constexpr int headings = 1;

    QWidget* const m_widget;
    CGridCtrl_X* const m_grid;
};
