#pragma once
// Pilotage de la saisie en débits et crédits : l'écran des lignes ouvert sur un journal,
// comptes choisis dans la liste de gauche, montants tapés dans les cellules.

#include "EssaiJournal.h"

#include "entry/SaisDC2.h"
#include "session/Session.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

namespace essai {

constexpr int Debit = 2;
constexpr int Credit = 3;

struct EcranDC {
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<ecran::SaisDC2> e;
    ui::Grille* t1 = nullptr;
    ui::Grille* t2 = nullptr;

    // Dossier neuf et exercice d'essai ouvert, sans écran.
    void Preparer() {
        support::RemettreServicesAZero();
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
    }
    void Liberer() {
        if (t2 && t2->EditionOuverte()) t2->AnnulerEdition();
        t1 = t2 = nullptr;
        e.reset();
        FermerBase();
        dossier.reset();
    }
    void Ouvrir(const QString& journal, const QString& ligne = QString()) {
        ViderSaisie();
        Executer("UPDATE Constante SET DateSaisie='20240315'");
        session().JournalSaisie = journal;
        session().LigneMenuSaisie = ligne;
        e = std::make_unique<ecran::SaisDC2>();
        t1 = e->findChild<ui::Grille*>("Tree1");
        t2 = e->findChild<ui::Grille*>("Tree2");
        e->show();
    }
    QPushButton* Bouton(const char* nom) const { return e->findChild<QPushButton*>(nom); }
    QLineEdit* Champ(const char* nom) const { return e->findChild<QLineEdit*>(nom); }
    QString Texte(const char* nom) const { return e->findChild<QLabel*>(nom)->text(); }
    QStringList Comptes() const {
        QStringList n;
        for (int l = 0; l < t1->NombreLignes(); ++l)
            n << t1->Texte(l, 0);
        return n;
    }
    // Le compte choisi à gauche puis "->".
    void Ajouter(const QString& numero) {
        t1->FixerLigneCourante(t1->ChercherTexte(0, numero));
        QTest::mouseClick(Bouton("BAjout"), Qt::LeftButton);
    }
    // Clic sur la cellule du compte, texte tapé et Entrée.
    void Montant(const QString& numero, int colonne, const QString& texte) {
        const int l = t2->ChercherTexte(0, numero);
        QVERIFY2(l >= 0, qPrintable(numero));
        QVERIFY(support::CliquerCellule(t2, l, colonne));
        QVERIFY(t2->EditionOuverte());
        support::TaperDansCellule(t2, texte);
    }
    void Libelle(const QString& texte) { Champ("Text2")->setText(texte); }
    // Clic sur le libellé d'une option (un bouton radio ne répond que là).
    static void CliquerOption(QWidget* option) {
        QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option->height() / 2));
    }
    QString Cellule(const QString& numero, int colonne) const {
        return t2->Texte(t2->ChercherTexte(0, numero), colonne);
    }
};

// Ligne de wSaisie d'un compte : montant signé et sens.
inline std::pair<Montant, QString> RangSaisie(const QString& numero) {
    SQLite::Statement q(Base(), "SELECT wMntEcr, wDCEcr FROM wSaisie WHERE wNumCpt=?");
    q.bind(1, numero.toStdString());
    if (!q.executeStep()) return {Montant(), QStringLiteral("absent")};
    return {Montant::depuisDixMilliemes(q.getColumn(0).getInt64()),
            QString::fromUtf8(q.getColumn(1).getText())};
}

} // namespace essai
