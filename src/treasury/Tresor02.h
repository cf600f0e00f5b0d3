#pragma once
// Lettrage manuel : un compte de client ou de fournisseur, des lignes cliquées jusqu'à ce que
// leurs montants s'équilibrent (ou soldent le reste du solde de début), puis la validation ;
// lettrage partiel du solde de début, lettrage automatique d'un compte, délettrage.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Tresor02;
}

namespace ecran {

class Tresor02 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Tresor02(QWidget* parent = nullptr);
    ~Tresor02() override;

    // État d'une ligne de Tree2 : 0 ouverte, 1 choisie, -1 déjà lettrée.
    int EtatLigne(int ligne) const;

    int MenuTiers = 170;
    int TousComptes = 0;
    int ToutesEcritures = 0;
    Montant CumulFactures, CumulReglements, SoldeDebutALettrer;

public slots:
    void Form_Load();
    void MajTreeComptes();
    void MajTreeEcritures();
    void Tree2_Click(int ligne);
    void CLettrer_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void CDelettrer_Click();
    void CTtDeletter_Click();

private:
    QString CompteChoisi() const;
    void AfficherCumuls();
    void Valider(int marque);
    void ColorerLigne(int ligne, int lettrage);

    std::unique_ptr<Ui::Tresor02> ui;
};

} // namespace ecran
