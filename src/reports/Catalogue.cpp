#include "reports/Catalogue.h"

#include "base/Texte.h"
#include "consultation/DonneesComptes.h"
#include "consultation/DonneesJournal.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Routines.h"

namespace rapport {

namespace {

QString Jour(const QString& aaaammjj) {
    return DateVersEcran(aaaammjj.trimmed());
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
    const comptes::Portee portee = code == QLatin1String("C")   ? comptes::Portee::Clients
                                   : code == QLatin1String("F") ? comptes::Portee::Fournisseurs
                                                                : comptes::Portee::Generale;
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
    for (const comptes::Compte& c : comptes::DeLaBalance(portee)) {
        if (c.sde.estNul() && c.cumD.estNul() && c.cumC.estNul()) continue;
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
    const QString mm = QStringLiteral("%1").arg(mois, 2, 10, QLatin1Char('0'));
    journal::LireLignes(code, false, [&](const journal::Ligne& l) {
        // Le mois se lit sur la date d'écriture, quelle que soit l'option de l'écran.
        if (mois >= 1 && l.dateEcr.mid(4, 2) != mm) return;
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
