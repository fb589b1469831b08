/// @file XeCustomUI.h
/// Six entry widgets, each a Qt widget with a class name and a meta-object of its own, so that style sheets, forms and
/// run-time class checks can tell them from the plain Qt widget. They look and behave exactly like their base class.
///
/// A widget is made with `new` and handed to its parent, which owns it. Without a parent it is a window of its own and
/// belongs to the caller.
#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTextEdit>

#ifdef XECUI_BUILDING_LIBRARY
#define XECUI_EXPORT Q_DECL_EXPORT
#else
#define XECUI_EXPORT Q_DECL_IMPORT
#endif

/// A field for one line of text.
class XECUI_EXPORT XeCUILineEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// Makes an empty field.
    explicit XeCUILineEdit(QWidget* parent = nullptr);
    /// Makes a field that shows `text`.
    explicit XeCUILineEdit(const QString& text, QWidget* parent = nullptr);
    ~XeCUILineEdit() override;
};

/// A field for a whole number, with step buttons. Starts as QSpinBox does: 0 to 99, at 0.
class XECUI_EXPORT XeCUISpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit XeCUISpinBox(QWidget* parent = nullptr);
    ~XeCUISpinBox() override;

    /// The field that the number is typed into. The spin box owns it; never null.
    using QSpinBox::lineEdit;
    /// Puts `edit` in the place of the field and deletes the former one. The spin box takes ownership; null is ignored.
    using QSpinBox::setLineEdit;
};

/// A field for a decimal number, with step buttons. Starts as QDoubleSpinBox does: 0.00 to 99.99, at 0.00.
class XECUI_EXPORT XeCUIDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit XeCUIDoubleSpinBox(QWidget* parent = nullptr);
    ~XeCUIDoubleSpinBox() override;

    /// The field that the number is typed into. The spin box owns it; never null.
    using QDoubleSpinBox::lineEdit;
    /// Puts `edit` in the place of the field and deletes the former one. The spin box takes ownership; null is ignored.
    using QDoubleSpinBox::setLineEdit;
};

/// A button with a list to choose from. `lineEdit()` and `setLineEdit(QLineEdit*)` come from QComboBox: the first is
/// null until the box is made editable, the second makes it editable and takes ownership of the field.
class XECUI_EXPORT XeCUIComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit XeCUIComboBox(QWidget* parent = nullptr);
    ~XeCUIComboBox() override;
};

/// A field for text of many lines.
class XECUI_EXPORT XeCUITextEdit : public QTextEdit
{
    Q_OBJECT

public:
    /// Makes an empty field.
    explicit XeCUITextEdit(QWidget* parent = nullptr);
    /// Makes a field that shows `text`, which may be plain text or HTML.
    explicit XeCUITextEdit(const QString& text, QWidget* parent = nullptr);
    ~XeCUITextEdit() override;
};

/// A text or picture that cannot be edited.
class XECUI_EXPORT XeCUILabel : public QLabel
{
    Q_OBJECT

public:
    /// Makes an empty label.
    explicit XeCUILabel(QWidget* parent = nullptr);
    /// Makes a label that shows `text`, which may be plain text or HTML.
    explicit XeCUILabel(const QString& text, QWidget* parent = nullptr);
    ~XeCUILabel() override;
};
