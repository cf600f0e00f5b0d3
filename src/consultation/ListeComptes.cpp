#include "consultation/ListeComptes.h"

#include "consultation/DonneesComptes.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Grille.h"

#include <QLabel>

namespace ecran {

namespace {

QString Affiche(Montant m) {
    return FormaterMontant(m, session().FormatMontant);
}

} // namespace

void RemplirListeComptes(ui::Grille* liste) {
    liste->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    liste->FixerTriMontants(2);
    liste->DebutRemplissage();
    for (const comptes::Compte& c : comptes::ParCreation())
        liste->AjouterLigne({c.numero, c.libelle, Affiche(c.solde)}, c.numero);
    liste->FinRemplissage();
    liste->Trier(0);
}

bool MontrerChiffresCompte(const QString& numero, QLabel* sde, QLabel* cumD, QLabel* cumC,
                           QLabel* solde, QString* libelle) {
    table::Compte c;
    if (!LireCompte(CleCourante(), numero, c)) return false;
    sde->setText(Affiche(c.Sde));
    cumD->setText(Affiche(c.CumD));
    cumC->setText(Affiche(c.CumC));
    solde->setText(Affiche(c.Solde));
    if (libelle) *libelle = c.LibCpt.trimmed();
    return true;
}

} // namespace ecran
