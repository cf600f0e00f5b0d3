#pragma once
// Saisie logique des montants : les comptes préparés rangés en ACTIF, PASSIF, CHARGES et
// PRODUITS, des montants signés tapés comme des variations, débit ou crédit déduits, puis
// l'écriture passée par le moteur.

#include "ui/EcranModal.h"

#include <cstdint>
#include <memory>

namespace Ui {
class SaisQuad;
}

namespace ui {
class Grille;
}

namespace ecran {

class SaisQuad : public ui::EcranModal {
    Q_OBJECT
public:
    explicit SaisQuad(QWidget* parent = nullptr);
    ~SaisQuad() override;

    std::int16_t LireSigneLigne(double wNumEcrt);
    void AffCompteSelect(const QString& numero);
    void MajwSaisieLog(const QString& montant, const QString& numero, double wNumEcrt);

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Text1_LostFocus();
    void Text2_LostFocus();
    void Text3_LostFocus();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void done(int resultat) override;

private:
    void BrancherListe(int rang);
    void OuvrirMontant(ui::Grille* liste);
    void ToucheListe(int rang, int cle);
    void AllerAListe(int rang, bool parLeBas);
    void ToucheChamp(QObject* champ, int cle);
    bool Valider(ui::Grille* liste, int ligne, int colonne, QString& texte);
    ui::Grille* Liste(int rang) const;

    std::unique_ptr<Ui::SaisQuad> ui;
    bool EditionFaite = false;
};

} // namespace ecran
