#include "reports/Catalogue.h"

#include "base/Texte.h"
#include "consultation/DonneesComptes.h"
#include "posting/Verification.h"
#include "reports/DonneesEtats.h"
#include "session/Session.h"
#include "store/Routines.h"

namespace rapport {

namespace {

QString Jour(const QString& aaaammjj) {
    return DateVersEcran(aaaammjj.trimmed());
}

// La base d'extraction est dans le dossier des données.
QString Dossier() {
    return session().DossierDonnees;
}

} // namespace

Document Entete(const QString& titre) {
    Document d;
    d.titre = titre;
    const Session& s = session();
    d.societe = s.NomSocCourante;
    table::Constante k;
    if (LireConstante(CleCourante(), k)) {
        d.debut = Jour(k.DateDebut);
        d.fin = Jour(k.DateFin);
        d.dateSaisie = Jour(k.DateSaisie);
    }
    d.version = QStringLiteral("Maroval Version ") + QStringLiteral(MAROVAL_VERSION);
    return d;
}

Document EtatBalance(const QString& code) {
    Document d = Entete(code == QLatin1String("C")   ? QStringLiteral("BALANCE CLIENTS")
                        : code == QLatin1String("F") ? QStringLiteral("BALANCE FOURNISSEURS")
                                                     : QStringLiteral("BALANCE GENERALE"));
    d.colonnes = {{QStringLiteral("Numéro"), 1.3},
                  {QStringLiteral("Libellé"), 3.6},
                  {QStringLiteral("Solde début"), 1.7, Alignement::Droite},
                  {QStringLiteral("Total Débit"), 1.7, Alignement::Droite},
                  {QStringLiteral("Total Crédit"), 1.7, Alignement::Droite},
                  {QStringLiteral("Solde Débit"), 1.7, Alignement::Droite},
                  {QStringLiteral("Solde Crédit"), 1.7, Alignement::Droite}};
    for (const etats::CompteDuLivre& c :
         etats::ComptesDeLaBalance(Dossier(), CleCourante(), code)) {
        const bool debiteur = comptes::SoldeDebiteur(c.erCpt, c.solde);
        d.Ajouter(Genre::Detail,
                  {c.numero, c.libelle, TexteMontant(c.sde), TexteMontant(c.cumD.abs(), true),
                   TexteMontant(c.cumC.abs(), true),
                   debiteur ? TexteMontant(c.solde.abs()) : QString(),
                   debiteur ? QString() : TexteMontant(c.solde.abs())});
    }
    Montant debit, credit, soldeDebit, soldeCredit;
    TotauxBalance(code, debit, credit, soldeDebit, soldeCredit);
    d.Ajouter(Genre::TotalGeneral,
              {QString(), QStringLiteral("Totaux"), QString(), TexteMontant(debit),
               TexteMontant(credit), TexteMontant(soldeDebit), TexteMontant(soldeCredit)});
    return d;
}

Document EtatGrandLivre(const QString& compte) {
    Document d = Entete(compte.isEmpty() ? QStringLiteral("GRAND LIVRE")
                                         : QStringLiteral("EDITION D'UN COMPTE"));
    d.colonnes = {{QStringLiteral("Numéro"), 1.1, Alignement::Droite},
                  {QStringLiteral("Date"), 1.5},
                  {QStringLiteral("Jnl"), 0.6, Alignement::Centre},
                  {QStringLiteral("Libellé"), 4.6},
                  {QStringLiteral("Débit"), 1.9, Alignement::Droite, true},
                  {QStringLiteral("Crédit"), 1.9, Alignement::Droite, true},
                  {QStringLiteral("Solde"), 1.9, Alignement::Droite}};
    etats::CompteDuLivre enCours;
    bool ouvert = false;
    Montant cumul;
    const auto fermer = [&] {
        if (!ouvert) return;
        d.Ajouter(Genre::TotalGroupe,
                  {QString(), QString(), QString(),
                   QStringLiteral("Total du compte ") + enCours.numero,
                   TexteMontant(enCours.cumD.abs()), TexteMontant(enCours.cumC.abs()),
                   TexteMontant(enCours.solde)});
        d.Ajouter(Genre::Blanc, {});
    };
    etats::CreerVueGrandLivre(Dossier(), CleCourante(), compte);
    etats::LireGrandLivre(
        Dossier(), CleCourante(), compte,
        [&](const etats::CompteDuLivre& c) {
            fermer();
            enCours = c;
            ouvert = true;
            cumul = c.sde;
            d.Ajouter(Genre::EnTeteGroupe, {QString(), QString(), QString(),
                                            c.numero + QStringLiteral("  ") + c.libelle});
            d.Ajouter(Genre::Detail,
                      {QString(), QString(), QString(), QStringLiteral("Solde de début"), QString(),
                       QString(), TexteMontant(c.sde)});
        },
        [&](const etats::LigneDuLivre& l) {
            cumul += l.montant;
            const Montant m = l.montant.abs();
            d.Ajouter(Genre::Detail,
                      {QString::number(static_cast<qint64>(l.numero)), Jour(l.dateEcr), l.journal,
                       l.libelle, l.debit ? TexteMontant(m) : QString(),
                       l.debit ? QString() : TexteMontant(m), TexteMontant(cumul)},
                      {l.debit ? m : Montant(), l.debit ? Montant() : m});
        });
    fermer();
    Montant debit, credit, soldeDebit, soldeCredit;
    TotauxBalance(QStringLiteral("G"), debit, credit, soldeDebit, soldeCredit);
    d.Ajouter(Genre::TotalGeneral, {QString(), QString(), QString(), QStringLiteral("Totaux"),
                                    TexteMontant(debit), TexteMontant(credit), QString()});
    d.Ajouter(Genre::TotalGeneral,
              {QString(), QString(), QString(), QStringLiteral("Soldes"), TexteMontant(soldeDebit),
               TexteMontant(soldeCredit), QString()});
    return d;
}

Document EtatJourCent() {
    Document d = Entete(QStringLiteral("JOURNAL CENTRALISATEUR"));
    d.colonnes = {{QStringLiteral("Journal"), 4},
                  {QStringLiteral("Mois"), 2.2},
                  {QStringLiteral("Total Débit"), 2, Alignement::Droite},
                  {QStringLiteral("Total Crédit"), 2, Alignement::Droite}};
    table::Constante k;
    LireConstante(CleCourante(), k);
    // Les totaux annuels de chaque journal, par son numéro dans JourCent.
    const auto annuel = [&k](int numero) -> std::pair<Montant, Montant> {
        switch (numero) {
        case 1:
            return {k.TDJV, k.TCJV};
        case 2:
            return {k.TDJA, k.TCJA};
        case 3:
            return {k.TDJT, k.TCJT};
        case 4:
            return {k.TDJD, k.TCJD};
        case 5:
            return {k.TDJI, k.TCJI};
        default:
            return {k.TDJG, k.TCJG};
        }
    };
    int courant = -1;
    QString nom;
    const auto fermer = [&] {
        if (courant < 0) return;
        const auto [debit, credit] = annuel(courant);
        d.Ajouter(Genre::TotalGroupe, {QStringLiteral("Total ") + nom, QString(),
                                       TexteMontant(debit), TexteMontant(credit)});
        d.Ajouter(Genre::Blanc, {});
    };
    for (const etats::LigneJourCent& l : etats::LireJourCent()) {
        if (l.numero != courant) {
            fermer();
            courant = l.numero;
            nom = l.journal;
            d.Ajouter(Genre::EnTeteGroupe, {l.journal});
        }
        d.Ajouter(Genre::Detail,
                  {QString(), l.mois, TexteMontant(l.debit, true), TexteMontant(l.credit, true)});
    }
    fermer();
    return d;
}

Document EtatResulBilan(const QString& code) {
    const bool bilan = code == QLatin1String("B");
    Document d = Entete(bilan ? QStringLiteral("BILAN") : QStringLiteral("COMPTE DE RESULTAT"));
    d.colonnes = {{QStringLiteral("Numéro"), 1.1},
                  {bilan ? QStringLiteral("ACTIF") : QStringLiteral("CHARGES"), 3},
                  {QStringLiteral("Montant"), 1.7, Alignement::Droite},
                  {QStringLiteral("Numéro"), 1.1},
                  {bilan ? QStringLiteral("PASSIF") : QStringLiteral("PRODUITS"), 3},
                  {QStringLiteral("Montant"), 1.7, Alignement::Droite}};
    Montant gauche, droite;
    for (const table::Wbilan& w : etats::LireWbilan()) {
        const bool aGauche = !w.Numero1.trimmed().isEmpty();
        const bool aDroite = !w.Numero2.trimmed().isEmpty();
        gauche += w.Solde1;
        droite += w.Solde2;
        d.Ajouter(Genre::Detail,
                  {w.Numero1.trimmed(), w.Libelle1.trimmed(),
                   aGauche ? TexteMontant(w.Solde1) : QString(), w.Numero2.trimmed(),
                   w.Libelle2.trimmed(), aDroite ? TexteMontant(w.Solde2) : QString()});
    }
    d.Ajouter(Genre::TotalGeneral, {QString(), QStringLiteral("Total"), TexteMontant(gauche),
                                    QString(), QStringLiteral("Total"), TexteMontant(droite)});
    return d;
}

Document EtatPlan() {
    Document d = Entete(QStringLiteral("PLAN COMPTABLE"));
    d.dateSaisie.clear(); // le plan ne reçoit pas la date de saisie
    d.colonnes = {{QStringLiteral("Numéro"), 1.3},
                  {QStringLiteral("Libellé"), 5},
                  {QStringLiteral("Code"), 0.8, Alignement::Centre},
                  {QStringLiteral("Poste"), 1, Alignement::Centre}};
    for (const table::Compte& c : etats::ComptesDuPlan(CleCourante()))
        d.Ajouter(Genre::Detail,
                  {c.NumCpt.trimmed(), c.LibCpt.trimmed(), c.ErCpt.trimmed(), c.Bilan.trimmed()});
    return d;
}

Document EtatBalanceFisc() {
    Document d = Entete(QStringLiteral("BALANCE FISCALE"));
    d.colonnes = {{QStringLiteral("Compte"), 1.2},
                  {QStringLiteral("Intitulé"), 3.6},
                  {QStringLiteral("Solde A.N."), 1.7, Alignement::Droite},
                  {QStringLiteral("Mvt Débit"), 1.7, Alignement::Droite},
                  {QStringLiteral("Mvt Crédit"), 1.7, Alignement::Droite},
                  {QStringLiteral("Solde"), 1.7, Alignement::Droite},
                  {QStringLiteral("Solde ant."), 1.7, Alignement::Droite}};
    for (const etats::LigneFiscale& l : etats::LireFiscal())
        d.Ajouter(Genre::Detail, {l.numCpt.trimmed(), l.intitule.trimmed(), TexteMontant(l.soldeAN),
                                  TexteMontant(l.mvtDeb), TexteMontant(l.mvtCre),
                                  TexteMontant(l.solde), TexteMontant(l.soldeAnt)});
    Montant totDeb, totCre;
    etats::TotauxFiscal(totDeb, totCre);
    d.Ajouter(Genre::TotalGeneral, {QString(), QStringLiteral("Total des soldes débiteurs"),
                                    QString(), QString(), QString(), TexteMontant(totDeb)});
    d.Ajouter(Genre::TotalGeneral, {QString(), QStringLiteral("Total des soldes créditeurs"),
                                    QString(), QString(), QString(), TexteMontant(totCre)});
    return d;
}

QString TitreJournal(const QString& code, int mois) {
    QString titre = code == QLatin1String("V")   ? QStringLiteral("JOURNAL DES VENTES")
                    : code == QLatin1String("A") ? QStringLiteral("JOURNAL DES ACHATS")
                    : code == QLatin1String("T") ? QStringLiteral("JOURNAL DE TRESORERIE")
                    : code == QLatin1String("D") ? QStringLiteral("JOURNAL DES OPERATIONS DIVERSES")
                    : code == QLatin1String("I") ? QStringLiteral("JOURNAL D'INVENTAIRE")
                                                 : QStringLiteral("JOURNAL GENERAL");
    const QStringList& noms = session().NomsMois;
    if (mois >= 1 && mois <= 12 && noms.size() >= mois)
        titre += QStringLiteral(" - ") + noms[mois - 1];
    return titre;
}

Document EtatJournal(const QString& code, int mois) {
    Document d = Entete(TitreJournal(code, mois));
    d.colonnes = {{QStringLiteral("Numéro"), 1.1, Alignement::Droite},
                  {QStringLiteral("Date"), 1.5},
                  {QStringLiteral("Jnl"), 0.6, Alignement::Centre},
                  {QStringLiteral("Compte"), 1.4},
                  {QStringLiteral("Libellé"), 4.4},
                  {QStringLiteral("Débit"), 1.9, Alignement::Droite, true},
                  {QStringLiteral("Crédit"), 1.9, Alignement::Droite, true}};
    etats::LireJournal(Dossier(), CleCourante(), code, mois, [&](const etats::LigneDuJournal& l) {
        const Montant m = l.montant.abs();
        d.Ajouter(Genre::Detail,
                  {QString::number(static_cast<qint64>(l.numero)), Jour(l.dateEcr), l.journal,
                   l.compte, l.libelle, l.debit ? TexteMontant(m) : QString(),
                   l.debit ? QString() : TexteMontant(m)},
                  {l.debit ? m : Montant(), l.debit ? Montant() : m});
    });
    Montant debit, credit;
    TotauxJournal(code, debit, credit, mois);
    d.Ajouter(Genre::TotalGeneral,
              {QString(), QString(), QString(), QString(), QStringLiteral("Totaux"),
               TexteMontant(debit), TexteMontant(credit)});
    return d;
}

} // namespace rapport
