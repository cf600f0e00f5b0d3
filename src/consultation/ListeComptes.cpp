#include "consultation/ListeComptes.h"

#include "consultation/DonneesComptes.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Grille.h"

#include <QLabel>

namespace ecran {

void RemplirListeComptes(ui::Grille* liste) {
    liste->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    liste->FixerTriMontants(2);
    liste->DebutRemplissage();
    for (const comptes::Compte& c : comptes::ParCreation())
        liste->AjouterLigne({c.numero, c.libelle, AfficheMontant(c.solde)}, c.numero);
    liste->FinRemplissage();
    liste->Trier(0);
}

bool MontrerChiffresCompte(const QString& numero, QLabel* sde, QLabel* cumD, QLabel* cumC,
                           QLabel* solde, QString* libelle) {
    table::Compte c;
    if (!LireCompte(CleCourante(), numero, c)) return false;
    sde->setText(AfficheMontant(c.Sde));
    cumD->setText(AfficheMontant(c.CumD));
    cumC->setText(AfficheMontant(c.CumC));
    solde->setText(AfficheMontant(c.Solde));
    if (libelle) *libelle = c.LibCpt.trimmed();
    return true;
}

} // namespace ecran
