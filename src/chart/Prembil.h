#pragma once
// Bilan d'ouverture : les comptes de bilan sur deux côtés, actif et passif, avec leur
// solde de début tapé dans la liste. Chaque montant validé va droit dans le compte et les
// totaux de l'exercice ; la clôture, possible quand les deux côtés s'égalent, est définitive.

#include "base/Montant.h"
#include "ui/EcranModal.h"
#include "ui/Grille.h"

#include <memory>

namespace Ui {
class Prembil;
}

class QLabel;

namespace ecran {

class Prembil : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Prembil(QWidget* parent = nullptr);
    ~Prembil() override;

    // Taille de l'écran et largeurs des colonnes des deux listes, pour la prochaine fois.
    void SauverPersonalisations();

public slots:
    void Form_Load();
    void Tree1_Click();
    void Tree2_Click();
    void Tree1_KeyPress(int cle);
    void Tree2_KeyPress(int cle);
    void TestEquilibre();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void done(int resultat) override;

private:
    // Ce qui distingue l'actif du passif.
    struct Cote {
        ui::Grille* grille = nullptr;
        QLabel* total = nullptr;
        Montant* valeur = nullptr;
        QString prefixeTiers;       // "41" ou "40"
        QString collectif;          // "410" ou "400"
        QList<int> classesInverses; // fonctions des comptes normalement de l'autre signe
    };
    void Remplir(const Cote& cote, const char* erCpt, const QString& exclu);
    void OuvrirCellule(const Cote& cote);
    void ToucheListe(const Cote& cote, int cle);
    ui::Grille::Validation ValiderCellule(const Cote& cote, int ligne, QString& texte);
    void MontrerTotal(const Cote& cote);

    std::unique_ptr<Ui::Prembil> ui;
    Cote actif, passif;
    Montant AncienMontant, TotalActif, TotalPassif;
    bool EditionFaite = false;
    bool OuvertureClose = false;
    bool personalisationsSauvees = false;
};

} // namespace ecran
