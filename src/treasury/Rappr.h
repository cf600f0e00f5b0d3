#pragma once
// Rapprochement bancaire : les lignes d'un compte de banque pointées une à une contre le
// relevé papier, et le solde que le relevé devrait montrer.

#include "base/Montant.h"
#include "treasury/DonneesTresor.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Rappr;
}

namespace ecran {

class Rappr : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Rappr(QWidget* parent = nullptr);
    ~Rappr() override;

    Montant SoldeTheorique, SoldeBaseCpt;

    // Toutes les lignes du compte choisi, les non pointées ou les pointées.
    void AffEcrituresPointage(tresor::Choix choix);

public slots:
    void Form_Load();
    void Tree1_Choix();
    void Tree2_Click(int ligne);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command6_Click();
    void Command7_Click();

private:
    QString CompteChoisi() const;
    void FaceComptes(bool comptes);

    std::unique_ptr<Ui::Rappr> ui;
};

} // namespace ecran
