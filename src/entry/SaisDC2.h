#pragma once
// Saisie en débits et crédits d'une écriture entière sur le journal choisi : les comptes
// permis par le journal à gauche, les lignes à droite avec un montant positif au débit ou
// au crédit ; les lignes vont dans wSaisie et passent par le moteur des écritures.

#include "base/Montant.h"
#include "ui/EcranModal.h"
#include "ui/Grille.h"

#include <QString>
#include <cstdint>
#include <memory>

namespace Ui {
class SaisDC2;
}

namespace ecran {

class SaisDC2 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit SaisDC2(QWidget* parent = nullptr);
    ~SaisDC2() override;

    std::int16_t NumLigneSaisie = 0;
    bool EditionFaite = false;

public slots:
    void Form_Load();
    void RemplirCompteDC();
    void MajTotDC(int colonne, int ligne, const QString& texte);
    void MajTotDC2();
    void MajwSaisieDC(const QString& sens, const QString& montant, double wNumEcrt);

    void BAjout_Click();
    void BSuppr_Click();
    void Check1_Click();
    void Text4_Change();
    void Tree2_Click(int ligne, int colonne);
    void Tree2_Touche(int cle);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    ui::Grille::Validation ValiderMontant(int ligne, int colonne, QString& texte);
    // Totaux des colonnes de Tree2, la cellule (ligne, colonne) lue dans texte si ligne >= 0.
    void CalculerTotaux(int colonne, int ligne, const QString& texte);
    void ReconstruireDepuisSaisie(bool avecMontants);
    bool ToucheChamp(QObject* objet, int cle);
    bool ToucheListe(QObject* objet, int cle);
    bool PerteFocus(QObject* objet);
    void Aller(QWidget* cible);

    std::unique_ptr<Ui::SaisDC2> ui;
};

} // namespace ecran
