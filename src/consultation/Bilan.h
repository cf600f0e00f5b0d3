#pragma once
// Bilan et compte de résultat : deux listes côte à côte tirées des soldes courants de
// Compte, leurs totaux et le résultat, le détail d'un compte au double clic, l'export.
// Les deux écrans sont de la même facture : DeuxListes porte ce qu'ils partagent.

#include "base/Montant.h"
#include "consultation/DonneesComptes.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Bilan;
}
namespace ui {
class Grille;
}
class QLabel;

namespace ecran {

class DeuxListes : public ui::EcranModal {
    Q_OBJECT
public:
    ~DeuxListes() override;

public slots:
    void Form_Load();
    void Tree1_DblClick();
    void Tree2_DblClick();
    void Command2_Click();
    void Command4_Click();
    void CBExportExcel_Click();
    void SauverPersonalisations();

protected:
    // Ce qui distingue les deux écrans.
    struct Genre {
        comptes::Rubrique gauche, droite;
        bool sommeAffichee = false; // total des montants tels qu'affichés
        bool resultatGaucheMoinsDroite = false;
        QString titreGauche, titreDroite; // en tête des listes dans l'export
        QString nomFichier, phraseExport;
    };
    DeuxListes(QWidget* parent, Genre genre);
    // Après la mise en place du formulaire : branchements et construction.
    void Demarrer();
    // Légende finale quand le résultat est acquis, sinon rien.
    virtual QString LegendeFinale(Montant gauche, Montant droite) const = 0;

    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void done(int resultat) override;

private:
    ui::Grille* G(const char* nom) const;
    QLabel* L(const char* nom) const;
    Montant Remplir(ui::Grille* grille, comptes::Rubrique rubrique);
    void Consulter(ui::Grille* grille);

    Genre genre;
    bool personalisationsSauvees = false;
};

class Bilan : public DeuxListes {
    Q_OBJECT
public:
    explicit Bilan(QWidget* parent = nullptr);
    ~Bilan() override;

protected:
    QString LegendeFinale(Montant gauche, Montant droite) const override;

private:
    std::unique_ptr<Ui::Bilan> ui;
};

} // namespace ecran
