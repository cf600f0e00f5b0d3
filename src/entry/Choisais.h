#pragma once
// Choix du type de saisie : logique, débits/crédits, annulation, changement de libellé.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Choisais;
}

namespace ecran {

class Choisais : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Choisais(QWidget* parent = nullptr);
    ~Choisais() override;

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();

private:
    std::unique_ptr<Ui::Choisais> ui;
};

} // namespace ecran
