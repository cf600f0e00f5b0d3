#pragma once
// Les factures non réglées de l'exercice, clients ou fournisseurs, par date d'échéance.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Tresor05;
}

namespace ecran {

class Tresor05 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Tresor05(QWidget* parent = nullptr);
    ~Tresor05() override;

    int MenuTiers = 170;
    int FiltreEcheance = 0;
    Montant SdeNLettreClients, SdeNLettreFourn, TotalFactures, TotalReglements;

public slots:
    void Form_Activate();
    void MajTreeFactures();
    void Command3_Click();

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    void ChoisirClasse(int menu);

    std::unique_ptr<Ui::Tresor05> ui;
};

} // namespace ecran
