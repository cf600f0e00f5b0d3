#include "posting/PasserEcriture.h"

#include "base/Valeur.h"
#include "posting/Securite.h"
#include "posting/TableTravail.h"
#include "posting/Totaux.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"

#include <SQLiteCpp/Transaction.h>

namespace {

int g_enLot = 0;

table::Ecriture LigneEcriture(const QString& cle, const table::Saisie& s, double dernierNum) {
    table::Ecriture e;
    e.CleCpt = cle;
    e.NumEcr = s.wNumEcrt;
    e.DateEcr = s.wDateEcr;
    e.DatePiece = s.wDatePiece;
    e.NumCptEcr = s.wNumCpt;
    e.ErEcr = s.wErEcr;
    e.MntEcr = s.wMntEcr;
    e.LibEcr = s.wLibEcr;
    e.DCEcr = s.wDCEcr;
    e.Journal = s.wJournal;
    e.Fin = s.wNumEcrt == dernierNum;
    e.DateEcheance = s.wDateEcheance;
    e.MoisEcheance = s.wMoisEcheance;
    // Un oui rangé dans cet octet vaut 255, que le lettrage ramène ensuite à 1.
    e.Lettrage = s.wLettrage ? 255 : 0;
    e.SectionEcr = EnEntier(s.wSectionEcr);
    e.VentilEcr = s.wVentilEcr != 0;
    return e;
}

} // namespace

bool ControlerEquilibre() {
    Montant debits, credits;
    for (const LigneTravail& l : LireTableTravail()) {
        if (l.s.wDCEcr.trimmed() == QLatin1String("D"))
            debits += l.s.wMntEcr.abs();
        else
            credits += l.s.wMntEcr.abs();
    }
    if (debits == credits) return true;
    ui::Boite(QStringLiteral("La somme des débits n'égale pas la somme des crédits ! "),
              QStringLiteral("Maroval"), ui::Icone::Critique);
    return false;
}

void PasserEcriture(const QString& Dernum, const QString& Monnaie) {
    const Session& s = session();
    const int mois = static_cast<int>(ValeurNumerique(s.DateSaisieCourante.mid(3, 2)));
    const QString cle = CleExercice(s.NumSocCourante, s.ExerciceCourant);
    QString journal;
    bool journalLu = false;
    double dernierNum = 0;

    if (g_enLot == 0) EcrireMarqueurDebut(cle, Dernum);

    // Images de tout ce qui va changer ; les livres ne bougent pas encore. Une seule
    // validation : un arrêt au milieu laisse moins d'images, jamais d'autre effet.
    CumulsEcriture cumuls;
    std::vector<LigneTravail> lignes;
    {
        SQLite::Transaction images(Base());
        table::Constante k;
        LireConstante(cle, k);
        k.CleCon = CleImages;
        AjouterConstante(k);
        // Un seul enregistrement de compte, comme la lecture partagée qu'il remplace.
        table::Compte c;
        for (const char* collectif : {"400", "410"}) {
            LireCompte(cle, QLatin1String(collectif), c);
            c.CleCpt = CleImages;
            AjouterCompte(c);
        }
        double compteur = ValeurNumerique(Dernum);
        if (Monnaie != s.MonnaieExercice) ConvertirSaisie(cle);

        lignes = LireTableTravail();
        for (LigneTravail& l : lignes) {
            if (l.s.wMntEcr.estNul()) continue;
            if (!journalLu) {
                journal = l.s.wJournal;
                journalLu = true;
            }
            l.s.wNumEcrt = compteur;
            EcrireNumeroTravail(l.rowid, compteur);
            compteur += 1;
            cumuls.AjouterLigne(l.s);
            LireCompte(cle, l.s.wNumCpt, c);
            c.CleCpt = CleImages;
            AjouterCompte(c);
            dernierNum = l.s.wNumEcrt;
            table::Budget b;
            if (LireBudget(cle, l.s.wNumCpt, b)) {
                b.CleCpt = CleImages;
                AjouterBudget(b);
            }
        }
        images.commit();
    }

    if (g_enLot == 0) EcrireMarqueur(QStringLiteral("2"));

    // Les livres changent, d'un seul tenant.
    {
        SQLite::Transaction livres(Base());
        MajConstanteEcriture(cle, cumuls, journal, mois, dernierNum);
        for (const LigneTravail& l : lignes) {
            if (l.s.wMntEcr.estNul()) continue;
            table::Ecriture e = LigneEcriture(cle, l.s, dernierNum);
            AjouterEcriture(e);
            MajComptesLigne(cle, l.s, mois);
        }
        livres.commit();
    }

    if (g_enLot == 0) EcrireMarqueur(QStringLiteral("0"));
    PurgerCleTemporaire();
}

PassagesEnLot::PassagesEnLot() {
    // En WAL, NORMAL ne synchronise plus chaque validation mais garde la base intègre.
    if (g_enLot++ == 0) Base().exec("PRAGMA synchronous=NORMAL");
}

PassagesEnLot::~PassagesEnLot() {
    if (--g_enLot > 0) return;
    try {
        Base().exec("PRAGMA synchronous=FULL");
    } catch (const std::exception&) {
        // La base fermée entre-temps se rouvrira en FULL.
    }
}
