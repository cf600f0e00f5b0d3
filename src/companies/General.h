#pragma once
// L'écran principal : l'exercice ouvert, la barre d'outils et les menus qui ouvrent les
// autres écrans, avec les quelques portes qui empêchent d'ouvrir une fonction trop tôt.

#include <QMainWindow>
#include <QString>
#include <memory>

class QAction;
class QLabel;
class QTimer;

namespace Ui {
class General;
}

namespace ecran {

class General : public QMainWindow {
    Q_OBJECT
public:
    explicit General(QWidget* parent = nullptr);
    ~General() override;

    // L'écran principal du programme, s'il existe.
    static General* Instance();

    // Les libellés que le choix de la société écrit (LBSociete, LBExercice...).
    void FixerLibelle(const QString& nom, const QString& texte);
    QString Libelle(const QString& nom) const;
    // Une action de la barre d'outils ou des menus par sa clé.
    QAction* Action(const QString& cle) const;

public slots:
    void Form_Load();
    void Toolbar2_ButtonClick(const QString& cle);
    void Toolbar2_ButtonMenuClick(const QString& cle);
    void SocGerer_Click();
    void SocQuit_Click();
    void SMCreer_Click();
    void SMSauve_Click();
    void SMAncienne_Click();
    void SMRestaure_Click();
    void SMBalFisc_Click();
    void SMFEC_Click();
    void SMSymbMon_Click();
    void SMIndex_Click();
    void SMPropos_Click();
    void ClotureExercice();
    void Tresorerie();
    void MajStatusBar1();

protected:
    // Fermer la fenêtre principale, c'est quitter Maroval.
    void closeEvent(QCloseEvent* evenement) override;

private:
    void PreparerBarre();

    std::unique_ptr<Ui::General> ui;
    QLabel* panneauDate = nullptr;
    QLabel* panneauHeure = nullptr;
    QTimer* horloge = nullptr;
};

// Crée et montre l'écran principal sans attendre (une seule fois par exécution).
void MontrerGeneral();
// Ouvre le choix de la société au-dessus de l'écran principal et attend sa fermeture.
void MontrerSociete();
// Détruit l'écran principal (fin d'un essai).
void FermerGeneral();

// Portes communes : message du plan trop petit, nombre de comptes minimal, saisie d'un
// exercice clos, saisies existantes.
void MessagePlanInsuffisant();
bool PlanAuMoins(int minimum);
bool PorteSaisie();
bool ControlerSaisies();

} // namespace ecran
