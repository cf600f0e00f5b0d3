#pragma once
// Choix de la société, de l'exercice et de la date de saisie : la porte du programme.
// Crée, modifie et supprime aussi les sociétés et leurs exercices.

#include "ui/EcranModal.h"

#include <QString>
#include <memory>

class QListWidget;

namespace Ui {
class Societe;
}

namespace ecran {

class Societe : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Societe(QWidget* parent = nullptr);
    ~Societe() override;

    // Date que List2 montrait au choix de l'exercice (JJ/MM/AAAA).
    QString DateAncienne() const { return dateAncienne; }

public slots:
    void Form_Load();
    void PreselectionSociete();
    void List1_Click();
    void List2_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    // Remplit List1 et choisit la société de ce numéro (la première si elle n'y est pas).
    void AffSocietes(int numSocAChoisir = -1);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void showEvent(QShowEvent* evenement) override;
    // Sans choix, fermer la fenêtre revient à quitter Maroval.
    void closeEvent(QCloseEvent* evenement) override;

private:
    int SocieteChoisie() const;
    int ExerciceChoisi() const;
    void ChoisirDonnee(QListWidget* liste, int donnee);
    void SupprimerExerciceChoisi(int numSoc);
    void SupprimerSociete(int numSoc);
    bool ChoixValide() const;

    std::unique_ptr<Ui::Societe> ui;
    QString dateAncienne;
    bool charge = false;
};

} // namespace ecran
