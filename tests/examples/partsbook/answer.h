#pragma once

#include "modaldriver.h"

#include <QAbstractButton>
#include <QMessageBox>

/// What is done with a box: its button with this text is pressed. Gives the text of the box.
class Answer
{
public:
    explicit Answer(const QString& button)
        : m_driver([this, button](QMessageBox* box) {
              m_text = box->text();
              for (QAbstractButton* one : box->buttons()) {
                  if (one->text().remove('&') == button)
                      one->click();
              }
          })
    {}
    QString text() const { return m_driver.hasActed() ? m_text : "no box"; }

private:
    QString m_text;
    ModalDriver<QMessageBox> m_driver;
};
