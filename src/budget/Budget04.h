#pragma once
// Contrôle budgétaire global : les comptes de charges et ceux de produits avec leurs cumuls
// arrêtés à un mois, leurs totaux, et le résultat prévu de l'exercice.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Budget04;
}

namespace ecran {

class Budget04 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Budget04(QWidget* parent = nullptr);
    ~Budget04() override;

    int ModeCumul = 1;

public slots:
    void MajBudGlob();
    void Command3_Click();

private:
    void MontrerClasse(bool charges);

    std::unique_ptr<Ui::Budget04> ui;
};

} // namespace ecran
