#pragma once
// Porte de toutes les consultations : journaux, balances, résultat, bilan (gardé tant que
// l'ouverture n'est pas équilibrée), un compte, graphiques.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Consult;
}

namespace ecran {

class Consult : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Consult(QWidget* parent = nullptr);
    ~Consult() override;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();

private:
    std::unique_ptr<Ui::Consult> ui;
};

} // namespace ecran
