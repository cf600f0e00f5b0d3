#pragma once
// Création de la balance fiscale : la table Fiscal, le contrôle des livres, le fichier de
// liaison pour le cabinet comptable enregistré où l'utilisateur le veut, puis l'état.

#include "ui/EcranModal.h"

namespace Ui {
class Fiscalite;
}

namespace ecran {

// La question posée avant d'ouvrir l'écran ; Oui montre l'aide de la fiscalité.
void ConseilFiscal();

class Fiscalite : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Fiscalite(QWidget* parent = nullptr);
    ~Fiscalite() override;

    void ImprimerBalanceFisc();

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    // Le fichier de liaison : écrit d'abord sous balfisc.tmp, puis recopié là où
    // l'utilisateur le choisit.
    void EnregistrerLiaison();

    Ui::Fiscalite* ui;
};

} // namespace ecran
