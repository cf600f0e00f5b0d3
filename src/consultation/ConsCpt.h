#pragma once
// Consultation d'un compte de l'exercice ouvert : ses chiffres, toutes ses lignes, celles
// d'un mois (le solde part de celui d'avant le mois) ou ses douze cumuls mensuels, et
// l'export de ce qui est montré.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class ConsCpt;
}

class FichierCsv;

namespace ecran {

class ConsCpt : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ConsCpt(QWidget* parent = nullptr);
    ~ConsCpt() override;

    // Compte : son numéro ; Mois : 1 à 12, ou 0 pour toute l'année.
    void AffEcritureCpt(const QString& Compte, int Mois);

public slots:
    void Form_Load();
    void Text1_Change();
    void Text1_KeyPress();
    void Tree1_SelectionChange();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void BTExport_Click();

private:
    enum class Vue { Comptes, Toutes, Mois, Cumuls };
    void AfficherListeComptes(bool visible);

    std::unique_ptr<Ui::ConsCpt> ui;
    bool ExportEnCours = false;
    QString NomFichier;
    Montant CumulSolde;
    QString separateur;
    QString compte;    // numéro choisi, sans blancs
    QString nomExport; // numéro-libellé
    Vue vue = Vue::Comptes;
    int moisVu = 0;
};

} // namespace ecran
