#include "consultation/LignesCompte.h"

#include "base/Texte.h"
#include "base/Valeur.h"
#include "consultation/Export.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Grille.h"

std::vector<LigneCompte> LireLignesCompte(const QString& cle, const QString& numero, int mois,
                                          Montant soldeDebut) {
    std::vector<LigneCompte> lignes;
    SQLite::Statement q(Base(), "SELECT NumEcr, DateEcr, LibEcr, MntEcr, DCEcr FROM Ecriture "
                                "WHERE CleCpt=? AND NumCptEcr=? ORDER BY NumEcr");
    q.bind(1, cle.toStdString());
    q.bind(2, numero.trimmed().toStdString());
    Montant solde = soldeDebut;
    while (q.executeStep()) {
        const QString date = QString::fromUtf8(q.getColumn(1).getText());
        const Montant montant = Montant::depuisDixMilliemes(q.getColumn(3).getInt64());
        solde += montant;
        if (mois != 0 && static_cast<int>(ValeurNumerique(date.mid(4, 2))) != mois) continue;
        LigneCompte l;
        l.NumEcr = q.getColumn(0).getDouble();
        l.Date = DateVersEcran(date);
        l.LibEcr = QString::fromUtf8(q.getColumn(2).getText());
        l.MntEcr = montant;
        l.Debit = QString::fromUtf8(q.getColumn(4).getText()).trimmed() == QLatin1String("D");
        l.Solde = solde;
        lignes.push_back(std::move(l));
    }
    return lignes;
}

QStringList TitresLignesCompte() {
    return {QStringLiteral("Numéro"), QStringLiteral("Date"),   QStringLiteral("Libellé"),
            QStringLiteral("Débit"),  QStringLiteral("Crédit"), QStringLiteral("Solde")};
}

void AfficherLignesCompte(ui::Grille* grille, const std::vector<LigneCompte>& lignes) {
    const QString& image = session().FormatMontant;
    const Qt::Alignment droite = Qt::AlignRight | Qt::AlignVCenter;
    grille->Vider();
    for (int c : {0, 3, 4, 5}) {
        grille->FixerAlignementColonne(c, droite);
        grille->FixerTriMontants(c);
    }
    grille->FixerTriDates(1);
    // D'un seul coup : une liste de vingt mille lignes reste instantanée.
    grille->DebutRemplissage();
    for (const LigneCompte& l : lignes) {
        const QString montant = FormaterMontant(l.MntEcr, image);
        grille->AjouterLigne({QString::number(l.NumEcr, 'g', 15), l.Date, l.LibEcr,
                              l.Debit ? montant : QString(), l.Debit ? QString() : montant,
                              FormaterMontant(l.Solde, image)},
                             l.NumEcr);
    }
    grille->FinRemplissage();
}

void ExporterLignesCompte(FichierCsv& fichier, const std::vector<LigneCompte>& lignes) {
    fichier.EcrireTitres(TitresLignesCompte());
    for (const LigneCompte& l : lignes) {
        const QString montant = NombreSimple(l.MntEcr);
        fichier.EcrireLigne({NombreSimple(l.NumEcr), l.Date, l.LibEcr,
                             l.Debit ? montant : QString(), l.Debit ? QString() : montant,
                             NombreSimple(l.Solde)},
                            true);
    }
}

QString PhraseExportCompte(const QString& nom, const QString& fichier) {
    return QStringLiteral("Le compte \"%1\" a été exporté sous \"%2\"").arg(nom, fichier);
}

QString QuestionExportCompte() {
    return QStringLiteral("Voulez-vous ouvrir ce journal maintenant ?");
}
