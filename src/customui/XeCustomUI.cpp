#include "XeCustomUI.h"

XeCUILineEdit::XeCUILineEdit(QWidget* parent) : QLineEdit(parent) {}
XeCUILineEdit::XeCUILineEdit(const QString& text, QWidget* parent) : QLineEdit(text, parent) {}
XeCUILineEdit::~XeCUILineEdit() = default;

XeCUISpinBox::XeCUISpinBox(QWidget* parent) : QSpinBox(parent) {}
XeCUISpinBox::~XeCUISpinBox() = default;

XeCUIDoubleSpinBox::XeCUIDoubleSpinBox(QWidget* parent) : QDoubleSpinBox(parent) {}
XeCUIDoubleSpinBox::~XeCUIDoubleSpinBox() = default;

XeCUIComboBox::XeCUIComboBox(QWidget* parent) : QComboBox(parent) {}
XeCUIComboBox::~XeCUIComboBox() = default;

XeCUITextEdit::XeCUITextEdit(QWidget* parent) : QTextEdit(parent) {}
XeCUITextEdit::XeCUITextEdit(const QString& text, QWidget* parent) : QTextEdit(text, parent) {}
XeCUITextEdit::~XeCUITextEdit() = default;

XeCUILabel::XeCUILabel(QWidget* parent) : QLabel(parent) {}
XeCUILabel::XeCUILabel(const QString& text, QWidget* parent) : QLabel(text, parent) {}
XeCUILabel::~XeCUILabel() = default;
