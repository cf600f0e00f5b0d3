#pragma once
// Changement du libellé d'un compte du plan (celui de la ligne courante du plan) ; sa
// ligne de budget suit. Aucun montant ne bouge, les lignes passées gardent leur texte.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class ModifLibCpt;
}

namespace ui {
class Grille;
}

namespace ecran {

class ModifLibCpt : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ModifLibCpt(QWidget* parent = nullptr);
    ~ModifLibCpt() override;

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();

private:
    std::unique_ptr<Ui::ModifLibCpt> ui;
    // La liste du plan qui a ouvert l'écran, et sa ligne courante.
    ui::Grille* plan = nullptr;
    int ligne = -1;
};

} // namespace ecran
