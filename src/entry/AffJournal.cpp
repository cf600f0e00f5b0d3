#include "entry/AffJournal.h"

#include "session/Montant.h"
#include "session/Session.h"
#include "session/Texte.h"
#include "store/Base.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QApplication>
#include <QHeaderView>
#include <QList>
#include <QProgressBar>
#include <QShowEvent>
#include <QTreeWidgetItem>

namespace {

// Colonne cachée qui garde la lettre du journal.
constexpr int ColonneJournal = 7;
// Lignes ajoutées d'un coup entre deux rafraîchissements de la jauge.
constexpr int TailleLot = 2000;

const char* const ColonnesEcriture =
    "SELECT NumEcr, DateEcr, DatePiece, LibEcr, NumCptEcr, MntEcr, DCEcr, Journal, Fin "
    "FROM Ecriture WHERE CleCpt=?";

QString Colonne(SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText());
}

QString Numero(double n) {
    return QString::number(static_cast<qint64>(n));
}

QTreeWidgetItem* Element(const QStringList& textes, std::int32_t donnee) {
    auto* e = new QTreeWidgetItem(textes);
    e->setData(0, Qt::UserRole, donnee);
    return e;
}

QTreeWidgetItem* ElementEcriture(SQLite::Statement& q) {
    const Montant m = Montant::depuisDixMilliemes(q.getColumn(5).getInt64());
    const double numero = q.getColumn(0).getDouble();
    return Element(TextesLigneJournal(Numero(numero), Colonne(q, 1), Colonne(q, 2), Colonne(q, 3),
                                      Colonne(q, 4), FormaterMontant(m, session().FormatMontant),
                                      Colonne(q, 6) == QLatin1String("D"), Colonne(q, 7)),
                   static_cast<std::int32_t>(numero));
}

} // namespace

QStringList TitresJournalEcritures() {
    return {QStringLiteral("Numéro"),     QStringLiteral("Date Saisie"),
            QStringLiteral("Date Pièce"), QStringLiteral("Libellé"),
            QStringLiteral("Compte"),     QStringLiteral("Débit"),
            QStringLiteral("Crédit"),     QString()};
}

void PreparerListesJournal(ui::Grille* tree1, ui::Grille* tree2) {
    const QList<int> largeurs{60, 80, 80, 220, 80, 100, 100};
    for (ui::Grille* g : {tree1, tree2}) {
        g->FixerColonnes(TitresJournalEcritures());
        for (int c = 0; c < largeurs.size(); ++c)
            g->FixerLargeurColonne(c, largeurs[c]);
        g->setColumnHidden(ColonneJournal, true);
        g->setUniformRowHeights(true);
        g->setRootIsDecorated(false);
    }
}

QStringList TextesLigneJournal(const QString& numero, const QString& dateEcr,
                               const QString& datePiece, const QString& libelle,
                               const QString& compte, const QString& montantAffiche, bool debit,
                               const QString& journal) {
    return {numero,
            DateVersEcran(dateEcr),
            DateVersEcran(datePiece),
            libelle,
            compte,
            debit ? montantAffiche : QString(),
            debit ? QString() : montantAffiche,
            journal};
}

void AffJournal(QWidget* ecran, ui::Grille* tree1, ui::Grille* tree2, QProgressBar* gauge1,
                const QString& journal) {
    tree1->Vider();
    tree2->Vider();
    ecran->setCursor(Qt::WaitCursor);
    const std::string cle = CleCourante().toStdString();
    const bool tous = journal == QLatin1String("*");
    const std::string filtre = tous ? std::string() : " AND Journal=?";

    int total = 0;
    {
        SQLite::Statement n(Base(), "SELECT COUNT(*) FROM Ecriture WHERE CleCpt=?" + filtre);
        n.bind(1, cle);
        if (!tous) n.bind(2, journal.toStdString());
        if (n.executeStep()) total = n.getColumn(0).getInt();
    }
    gauge1->setRange(0, qMax(total, 1));
    gauge1->setValue(0);
    gauge1->setVisible(true);
    // La liste reste fermée aux clics tant qu'elle se remplit ; le reste de l'écran répond.
    tree1->setEnabled(false);

    SQLite::Statement q(Base(), ColonnesEcriture + filtre + " ORDER BY NumEcr DESC");
    q.bind(1, cle);
    if (!tous) q.bind(2, journal.toStdString());
    QList<QTreeWidgetItem*> lot;
    int lues = 0;
    bool vide = true;
    while (q.executeStep()) {
        if (q.getColumn(8).getInt() != 0 && !vide)
            lot << Element(QStringList(TitresJournalEcritures().size(), QString()),
                           LigneSeparatrice);
        lot << ElementEcriture(q);
        vide = false;
        if (++lues % TailleLot == 0) {
            tree1->addTopLevelItems(lot);
            lot.clear();
            gauge1->setValue(lues);
            QApplication::processEvents();
        }
    }
    tree1->addTopLevelItems(lot);
    tree1->setEnabled(true);
    gauge1->setValue(lues);
    gauge1->setVisible(false);
    ecran->unsetCursor();
}

bool FinEcr(std::int32_t numero) {
    if (numero == 0) return true;
    auto& q = Requete("SELECT Fin FROM Ecriture WHERE CleCpt=? AND NumEcr=?");
    q.bind(1, CleCourante().toStdString());
    q.bind(2, static_cast<double>(numero));
    // Un numéro sans ligne arrête la recherche comme une fin de groupe.
    return !q.executeStep() || q.getColumn(0).getInt() != 0;
}

bool TrouverGroupe(std::int32_t p, std::int32_t& debut, std::int32_t& fin) {
    if (p == LigneSeparatrice) {
        ui::Boite(QStringLiteral("Veuillez sélectionner une ligne contenant une écriture"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return false;
    }
    // Ligne de fin : le groupe commence après la fin précédente.
    if (FinEcr(p)) --p;
    while (p > 0 && !FinEcr(p))
        --p;
    debut = p + 1;
    fin = debut;
    while (!FinEcr(fin))
        ++fin;
    return true;
}

void AffGroupe(ui::Grille* tree2, std::int32_t debut, std::int32_t fin) {
    tree2->Vider();
    SQLite::Statement q(Base(), std::string(ColonnesEcriture) +
                                    " AND NumEcr>=? AND NumEcr<=? ORDER BY NumEcr");
    q.bind(1, CleCourante().toStdString());
    q.bind(2, static_cast<double>(debut));
    q.bind(3, static_cast<double>(fin));
    QList<QTreeWidgetItem*> lignes;
    while (q.executeStep())
        lignes << ElementEcriture(q);
    tree2->addTopLevelItems(lignes);
}

namespace ecran {

EcranJournal::EcranJournal(QWidget* parent) : ui::EcranModal(parent) {}

void EcranJournal::Brancher(ui::Grille* journal, ui::Grille* groupe, QProgressBar* jauge) {
    tree1 = journal;
    tree2 = groupe;
    gauge1 = jauge;
    PreparerListesJournal(tree1, tree2);
    gauge1->hide();
}

void EcranJournal::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (activee || evenement->spontaneous()) return;
    activee = true;
    // Après l'affichage : la jauge se voit pendant la lecture du journal.
    QMetaObject::invokeMethod(this, &EcranJournal::Form_Activate, Qt::QueuedConnection);
}

void EcranJournal::AffJournal(const QString& journal) {
    ::AffJournal(this, tree1, tree2, gauge1, journal);
}

bool EcranJournal::FinEcr(std::int32_t numero) {
    return ::FinEcr(numero);
}

bool EcranJournal::ChoisirGroupe(QTreeWidgetItem* element) {
    if (!element ||
        !TrouverGroupe(element->data(0, Qt::UserRole).toInt(), NumDebutGroupe, NumFinGroupe))
        return false;
    AffGroupe(tree2, NumDebutGroupe, NumFinGroupe);
    return true;
}

} // namespace ecran
