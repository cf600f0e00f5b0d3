// Les portes de l'écran principal : une fonction ne s'ouvre pas avant que le plan
// comptable et les saisies la rendent utile.

#include "companies/General.h"
#include "companies/OuvertureEcrans.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "treasury/Tresor00.h"
#include "ui/Boite.h"
#include "yearend/Cloture.h"

namespace ecran {

namespace {

bool Question(const QString& texte, const QString& titre = QStringLiteral("Maroval")) {
    return ui::Boite(texte, titre, ui::Icone::Question, ui::Boutons::OuiNon) == ui::Reponse::Oui;
}

// Solde de l'exercice précédent et à-nouveau de l'exercice ouvert d'un compte collectif :
// un compte absent compte pour 0.
Montant Solde(const QString& cle, const QString& numero, bool debut) {
    table::Compte c;
    if (!LireCompte(cle, numero, c)) return Montant();
    return debut ? c.Sde : c.Solde;
}

} // namespace

void MessagePlanInsuffisant() {
    ui::Boite(QStringLiteral("Votre plan comptable n'est pas suffisant pour tenir votre "
                             "comptabilité.\n"
                             "Utilisez le choix Plan et n'hésitez pas à prendre la totalité du "
                             "Plan Type correspondant à votre situation.\n"
                             "Vous pourrez ensuite supprimer les comptes dont vous n'aurez jamais "
                             "besoin et\n"
                             "grâce au bouton Créer un nouveau compte, ajouter les comptes utiles "
                             "pour votre gestion\n"
                             "sans oublier les comptes nominatifs de vos clients et fournisseurs."),
              QStringLiteral("Maroval"), ui::Icone::Information);
}

bool PlanAuMoins(int minimum) {
    if (PlanSuffisant() >= minimum) return true;
    MessagePlanInsuffisant();
    return false;
}

bool PorteSaisie() {
    table::Constante c;
    // L'indicateur de clôture reste tel quel : l'utilisateur rouvre seulement la saisie.
    if (LireConstante(CleCourante(), c) && c.ExerciceClos &&
        !Question(QStringLiteral("Vous avez fait un transfert définitif et clos l'exercice en "
                                 "cours. \n"
                                 "Etes-vous certain de vouloir ouvrir cet exercice à nouveau ?")))
        return false;
    return PlanAuMoins(3);
}

bool ControlerSaisies() {
    table::Constante c;
    if (LireConstante(CleCourante(), c) && c.LastNumEcrit != 0) return true;
    ui::Boite(QStringLiteral("Vous ne pouvez accéder à cette fonction pour l'instant car...\n"
                             "...Vous n'avez pas encore saisi d'écritures !"),
              QStringLiteral("Maroval"), ui::Icone::Information);
    return false;
}

void General::ClotureExercice() {
    if (!PlanAuMoins(10)) return;
    table::Constante c;
    LireConstante(CleCourante(), c);
    if (c.ExerciceClos &&
        !Question(QStringLiteral("Vous avez déjà réalisé un transfert définitif et clos l'exercice "
                                 "en cours,\n"
                                 "Vérifiez si un nouveau transfert est définitif.\n"
                                 "Etes-vous certain de vouloir faire un nouveau transfert ?")))
        return;
    // Mois de la date de fin (AAAAMMJJ) et de la date de saisie (JJ/MM/AAAA).
    if (c.DateFin.mid(4, 2) != session().DateSaisieCourante.mid(3, 2) &&
        !Question(QStringLiteral("Vous n'êtes pas en fin d'exercice,\nVoulez-vous continuer ?")))
        return;
    OuvrirEcran<Cloture>(this);
}

void General::Tresorerie() {
    if (!PlanAuMoins(10)) return;
    const Session& s = session();
    const QString cle = CleCourante();
    const QString clePrecedent = CleExercice(s.NumSocCourante, s.ExerciceCourant - 1);
    table::Constante precedent;
    if (LireConstante(clePrecedent, precedent)) {
        // Les soldes de début des collectifs doivent reprendre ceux de l'année d'avant.
        const Montant seuil = Montant::depuisUnites(10);
        bool ecart = false;
        for (const QString& numero : {QStringLiteral("400"), QStringLiteral("410")})
            if ((Solde(cle, numero, true) - Solde(clePrecedent, numero, false)).abs() > seuil)
                ecart = true;
        if (ecart &&
            !Question(QStringLiteral("Nous vous conseillons de faire un transfert de \n"
                                     "l'exercice précédent sur l'exercice en cours.\n"
                                     "(Bouton Clôture de l'exercice précédent)\n"
                                     "Grâce à ce transfert, les soldes de début d'exercice\n"
                                     "des clients et fournisseurs de l'exercice en cours\n"
                                     "seront égaux au derniers soldes de l'exercice précédent.\n"
                                     "Voulez-vous continuer ?"),
                      QStringLiteral("Avertissement")))
            return;
    }
    OuvrirEcran<Tresor00>(this);
}

} // namespace ecran
