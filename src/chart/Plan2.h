#pragma once
// Gestion du plan comptable de l'exercice ouvert : comptes pris dans un plan standard (un
// à un ou en totalité), nouveau compte tapé sous les règles de numérotation, suppression,
// changement de libellé, détail d'un compte et bilan d'ouverture.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Plan2;
}

namespace plan {
struct Refus;
}

namespace ecran {

class Plan2 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Plan2(QWidget* parent = nullptr);
    ~Plan2() override;

public slots:
    void Form_Load();
    void Form_Activate();
    void List1_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command10_Click();
    void BRclient_Click();
    void BRfournisseur_Click();
    void BRgeneral_Click();
    void Mnumero_Change();
    void Mnumero_LostFocus();
    void Tree3_Click();
    void Tree3_DblClick();
    void Tree3_KeyDown(int cle);

protected:
    void showEvent(QShowEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    // Comptes de l'exercice ; menu non nul : ceux de cette fonction (clients, fournisseurs).
    void RemplirTree3(int menu);
    void AjouterLigne(const QString& numero, const QString& libelle, Montant solde);
    // Montre le refus d'une création et rend la main au champ en cause ; faux sans refus.
    bool MontrerRefus(const plan::Refus& refus);
    void MajLabel5();
    void Trier();
    void ChoisirMasque(const QString& masque);
    QString NumeroTape() const;
    bool ZoneNumeroVide() const;
    bool PlanChoisi() const;
    QString NumeroPlanChoisi() const;
    QString NumeroListe2(int ligne) const;
    QString LibelleListe2(int ligne) const;
    void MajCaptionBilan();

    std::unique_ptr<Ui::Plan2> ui;
    // Dernière plage de numérotation lue pour le numéro en saisie.
    QString ercptLu, bilanLu, messageLu, numeroLu;
    bool filtreLu = false;
    bool controleEnCours = false;
};

} // namespace ecran
