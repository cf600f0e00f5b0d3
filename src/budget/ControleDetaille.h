#pragma once
// Contrôle budgétaire détaillé : chaque compte, ses mois, et ses cumuls arrêtés à la date de
// saisie ou à la fin du mois précédent.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class ControleDetaille;
}

namespace ecran {

class budget03 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit budget03(QWidget* parent = nullptr);
    ~budget03() override;

    int ModeCumul = 1;

public slots:
    void MajTree1();
    void Tree1_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::ControleDetaille> ui;
};

} // namespace ecran
