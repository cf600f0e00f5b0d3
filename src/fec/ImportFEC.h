#pragma once
// Reprise dans une nouvelle société d'une comptabilité tenue ailleurs, depuis son fichier
// des écritures comptables : le fichier est contrôlé en entier, les journaux sont montrés
// avec celui de Maroval qui les reçoit, puis la reprise avance sous la jauge et peut être
// annulée sans rien laisser.

#include "fec/LectureFec.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class ImportFEC;
}

namespace ecran {

class ImportFEC : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ImportFEC(QWidget* parent = nullptr);
    ~ImportFEC() override;

    // Numéro de la société reprise, 0 sinon.
    int NumSocCreee() const { return numSocCreee; }

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();

    // Fermer l'écran pendant la reprise (la croix) vaut l'annuler : l'écran reste
    // ouvert jusqu'à ce que tout soit retiré.
    void done(int resultat) override;

private:
    void ChargerFichier(const QString& chemin);
    void MontrerJournal();
    void ChangerJournal(int rang);
    void Refus(const QStringList& refus);
    void Occupe(bool occupe);

    std::unique_ptr<Ui::ImportFEC> ui;
    fec::FichierLu fichier;
    bool fichierBon = false;
    bool enCours = false;
    bool annulation = false;
    int numSocCreee = 0;
};

} // namespace ecran
