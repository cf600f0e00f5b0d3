// Montants de la saisie en débits et crédits : cellules, lignes de wSaisie, totaux et
// passage de l'écriture.

#include "entry/SaisDC2.h"

#include "entry/Echeance.h"
#include "session/SaisieMontant.h"

#include "entry/SessionSaisie.h"
#include "posting/PasserEcriture.h"
#include "session/Session.h"
#include "session/Texte.h"
#include "store/Base.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui_SaisDC2.h"

#include <QDate>
#include <QRegularExpression>
#include <QTimer>

namespace ecran {

namespace {

constexpr int ColonneDebit = 2;
constexpr int ColonneCredit = 3;

// Un montant tapé ; vide vaut zéro.
bool LireMontantSaisi(const QString& texte, Montant& montant) {
    QString t = SansEspaces(texte);
    // Une cellule rouverte garde le texte montré, symbole de la monnaie compris.
    const QString symbole = SansEspaces(session().SymboleMonnaie);
    if (!symbole.isEmpty() && t.endsWith(symbole)) t.chop(symbole.size());
    if (t.isEmpty()) t = QStringLiteral("0");
    if (!MontantLisible(t)) return false;
    montant = MontantDepuisTexte(t);
    return true;
}

Montant MontantCellule(const QString& texte) {
    const QString t = SansEspaces(texte);
    return MontantDepuisTexte(t.isEmpty() ? QStringLiteral("0") : t);
}

} // namespace

ui::Grille::Validation SaisDC2::ValiderMontant(int ligne, int colonne, QString& texte) {
    if (colonne != ColonneDebit && colonne != ColonneCredit)
        return ui::Grille::Validation::Accepter;
    Montant m;
    if (!LireMontantSaisi(texte, m)) {
        ui::Boite(QStringLiteral("Votre saisie n'est pas conforme, Recommencez"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        texte.clear();
        return ui::Grille::Validation::Accepter;
    }
    if (m < Montant()) {
        ui::Boite(QStringLiteral("Ne saisissez que des montants positifs dans cet écran."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        texte.clear();
        return ui::Grille::Validation::Accepter;
    }
    const QString affiche = FormaterMontant(m, session().FormatMontant);
    const double numero = ui->Tree2->DonneeLigne(ligne).toDouble();
    const QString sens = colonne == ColonneDebit ? QStringLiteral("D") : QStringLiteral("C");
    if (!m.estNul()) {
        MajwSaisieDC(sens, affiche, numero);
        texte = affiche;
        EditionFaite = true;
        // L'Entrée qui ferme la cellule ne parvient pas à la liste : le drapeau tombe après.
        QTimer::singleShot(0, this, [this] { EditionFaite = false; });
        MajTotDC(colonne, ligne, texte);
        return ui::Grille::Validation::Accepter;
    }
    MajwSaisieDC(sens, QStringLiteral("0"), numero);
    // Au crédit, un zéro ne refait pas les totaux : c'est voulu.
    if (colonne == ColonneDebit) MajTotDC(colonne, ligne, QString());
    texte.clear();
    // Fermée à zéro, la cellule passe la main à l'autre montant de la ligne.
    ui->Tree2->EditerCellule(ligne, colonne == ColonneDebit ? ColonneCredit : ColonneDebit);
    return ui::Grille::Validation::Accepter;
}

void SaisDC2::Tree2_Click(QTreeWidgetItem* element, int colonne) {
    if (!element || (colonne != ColonneDebit && colonne != ColonneCredit)) return;
    ui->Command1->setEnabled(false);
    ui->Tree2->EditerCellule(ui->Tree2->Ligne(element), colonne);
}

void SaisDC2::Tree2_Touche(int cle) {
    if (cle != Qt::Key_Return && cle != Qt::Key_Enter) return;
    if (EditionFaite) {
        EditionFaite = false;
        return;
    }
    ui::Grille* t2 = ui->Tree2;
    const int ligne = t2->LigneCourante();
    if (t2->NombreLignes() == 0 || ligne < 0) return;
    ui->Command1->setEnabled(false);
    if (MontantCellule(t2->Texte(ligne, ColonneDebit)).estNul()) {
        t2->EditerCellule(ligne, ColonneCredit);
    } else {
        t2->FixerTexte(ligne, ColonneCredit, QString());
        t2->EditerCellule(ligne, ColonneDebit);
    }
}

void SaisDC2::MajwSaisieDC(const QString& sens, const QString& montant, double wNumEcrt) {
    // Arrondi tel qu'il sera montré.
    Montant m =
        MontantDepuisTexte(FormaterMontant(MontantDepuisTexte(montant), session().FormatMontant));
    std::int64_t rowid = 0;
    QString er;
    {
        auto& q = Requete("SELECT rowid, wErEcr FROM wSaisie WHERE wNumEcrt=? ORDER BY rowid "
                          "LIMIT 1");
        q.bind(1, wNumEcrt);
        if (!q.executeStep()) return;
        rowid = q.getColumn(0).getInt64();
        er = QString::fromUtf8(q.getColumn(1).getText()).trimmed();
        q.reset();
    }
    if ((er.startsWith(u'E') && sens == QLatin1String("C")) ||
        (er.startsWith(u'R') && sens == QLatin1String("D")))
        m = -m;
    const QString echeance = ui::TexteDate(ui->Text3);
    auto& u = Requete("UPDATE wSaisie SET wDateEcr=?, wDatePiece=?, wDateEcheance=?, wDCEcr=?, "
                      "wMntEcr=?, wFin=0, wMoisEcheance=?, wLettrage=0, wSectionEcr=0, "
                      "wVentilEcr=0 WHERE rowid=?");
    u.bind(1, DateVersBase(session().DateSaisieCourante).toStdString());
    u.bind(2, DateVersBase(ui::TexteDate(ui->Text1)).toStdString());
    u.bind(3, DateVersBase(echeance).toStdString());
    u.bind(4, sens.toStdString());
    u.bind(5, static_cast<std::int64_t>(m.dixMilliemes()));
    u.bind(6, echeance.mid(3, 2).toStdString());
    u.bind(7, rowid);
    u.exec();
}

void SaisDC2::CalculerTotaux(int colonne, int ligne, const QString& texte) {
    Montant debit, credit;
    for (int l = 0; l < ui->Tree2->NombreLignes(); ++l) {
        for (int c : {ColonneDebit, ColonneCredit}) {
            const QString t = (l == ligne && c == colonne) ? texte : ui->Tree2->Texte(l, c);
            (c == ColonneDebit ? debit : credit) += MontantCellule(t);
        }
    }
    ui->LTotDeb->setText(FormaterMontant(debit, session().FormatMontant));
    ui->LTotCre->setText(FormaterMontant(credit, session().FormatMontant));
    ui->Command1->setEnabled(debit == credit && !debit.estNul() && !credit.estNul());
}

void SaisDC2::MajTotDC(int colonne, int ligne, const QString& texte) {
    CalculerTotaux(colonne, ligne, texte);
}

void SaisDC2::MajTotDC2() {
    CalculerTotaux(-1, -1, QString());
}

void SaisDC2::Command1_Click() {
    if (!ControlerEquilibre()) {
        ReconstruireDepuisSaisie(true);
        return;
    }
    if (ui->Text2->text().trimmed().isEmpty()) {
        ui::Boite(QStringLiteral("Vous DEVEZ saisir un libellé."), QStringLiteral("Maroval"),
                  ui::Icone::Exclamation);
        return;
    }
    const QString echeance = ui::TexteDate(ui->Text3);
    if (ui->Text3->isVisible() && echeance != ui::DateVide() && !ConfirmerEcheance(echeance)) {
        ui->Text3->setFocus();
        return;
    }
    // Valeur liée : le texte est rangé tel que tapé, guillemets compris.
    auto& q = Requete("UPDATE wSaisie SET wLibEcr=?");
    q.bind(1, TexteRange(ui->Text2->text().trimmed(), 40).toStdString());
    q.exec();
    PasserEcriture(ui->Label1->text(), QStringLiteral("E"));
    if (!ui->BCrappel->isChecked()) {
        Base().exec("DELETE FROM wSaisie");
        ui->Tree2->Vider();
    } else {
        GarderComptesRappeles();
    }
    ui->Text2->clear();
    ui->Text1->setFocus();
    Form_Load();
}

// Le journal décide de ce qui reste pour l'écriture suivante, montants à zéro.
void SaisDC2::GarderComptesRappeles() {
    const QString journal = JournalSaisie();
    if (journal == QLatin1String("V"))
        Base().exec("DELETE FROM wSaisie WHERE wMenu=170");
    else if (journal == QLatin1String("A"))
        Base().exec("DELETE FROM wSaisie WHERE wMenu=160");
    else if (journal == QLatin1String("T"))
        Base().exec("DELETE FROM wSaisie WHERE (wMenu<>330 AND wMenu<>340)");
    Base().exec("DELETE FROM wSaisie WHERE (wNumCpt='677' OR wNumCpt='777' OR wNumCpt='107')");
    Base().exec("UPDATE wSaisie SET wMntEcr=0 WHERE wMntEcr<>0");
}

} // namespace ecran
