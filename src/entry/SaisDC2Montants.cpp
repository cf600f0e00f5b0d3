// Montants de la saisie en débits et crédits : cellules, lignes de wSaisie, totaux et
// passage de l'écriture.

#include "entry/SaisDC2.h"

#include "entry/ControlesSaisie.h"
#include "entry/DonneesSaisie.h"
#include "session/SaisieMontant.h"

#include "base/Texte.h"
#include "posting/PasserEcriture.h"
#include "session/Session.h"
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
    // Au crédit, un zéro laisse les totaux tels quels : la saisie passe au débit de la
    // ligne, dont la validation les refait.
    if (colonne == ColonneDebit) MajTotDC(colonne, ligne, QString());
    texte.clear();
    // Fermée à zéro, la cellule passe la main à l'autre montant de la ligne.
    ui->Tree2->EditerCellule(ligne, colonne == ColonneDebit ? ColonneCredit : ColonneDebit);
    return ui::Grille::Validation::Accepter;
}

void SaisDC2::Tree2_Click(int ligne, int colonne) {
    if (ligne < 0 || (colonne != ColonneDebit && colonne != ColonneCredit)) return;
    ui->Command1->setEnabled(false);
    ui->Tree2->EditerCellule(ligne, colonne);
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
    const auto l = saisie::LireLigne(wNumEcrt);
    if (!l) return;
    saisie::EcrireMontant(l->rowid, {saisie::MontantDuSens(l->s.wErEcr, sens, m), sens,
                                     session().DateSaisieCourante, ui::TexteDate(ui->Text1),
                                     ui::TexteDate(ui->Text3)});
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
    if (!ValiderEtPasser(ui->Text2, ui->Text3, ui->Label1->text())) return;
    if (!ui->BCrappel->isChecked()) {
        saisie::Vider();
        ui->Tree2->Vider();
    } else {
        saisie::GarderRappelsDuJournal(session().JournalSaisie);
    }
    ui->Text2->clear();
    ui->Text1->setFocus();
    Form_Load();
}

} // namespace ecran
