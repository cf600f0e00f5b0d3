#include "consultation/Resultat.h"

#include "session/Session.h"
#include "store/Routines.h"
#include "ui_Resultat.h"

namespace ecran {

Resultat::Resultat(QWidget* parent)
    : DeuxListes(parent, {comptes::Rubrique::Charges, comptes::Rubrique::Produits, false, false,
                          QStringLiteral("CHARGES"), QStringLiteral("PRODUITS"),
                          QStringLiteral("Compte_de_Résultat.csv"),
                          QStringLiteral("Le Compte de Résultat a été exporté sous \"%1\"")}),
      ui(std::make_unique<Ui::Resultat>()) {
    ui->setupUi(this);
    Demarrer();
}

Resultat::~Resultat() = default;

QString Resultat::LegendeFinale(Montant, Montant) const {
    table::Constante k;
    LireConstante(CleCourante(), k);
    // Le résultat est définitif une fois l'écriture d'inventaire passée au dernier jour.
    if (k.DateSaisie.trimmed() == k.DateFin.trimmed() && k.E2 == k.R2)
        return QStringLiteral("Votre résultat :");
    return QString();
}

} // namespace ecran
