#pragma once
// Écran "Sauvegarde & Restauration" : toute la base et maroval.ini dans une archive .sav,
// l'historique de ces sauvegardes, et la restauration d'une archive sur toute la base.

#include "ui/EcranModal.h"

#include <QString>
#include <memory>

namespace Ui {
class Backup;
}

namespace ecran {

class Backup : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Backup(QWidget* parent = nullptr);
    ~Backup() override;

    // Nombre d'écritures de la base lu au chargement, noté avec chaque sauvegarde.
    int NbEcrituresBase = 0;
    // Plus haut HistoID de l'historique plus 1.
    qint64 ProchainHistoID = 1;

public slots:
    void Form_Load();
    void Form_Activate();
    void AffHistoSauvegardes();
    void SupprimerHisto();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Label2_Click();
    void SftTree1_KeyDown(int cle);

protected:
    void showEvent(QShowEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    bool ConfirmerRestauration(const QString& fichier);

    std::unique_ptr<Ui::Backup> formulaire;
    bool activee = false;
};

} // namespace ecran

// Montre l'écran de sauvegarde (modal) : menu et barre d'outils de l'écran principal,
// écran de reprise après un arrêt brutal, choix de la société avec une archive en ligne
// de commande.
void OuvrirBackup(QWidget* parent = nullptr);

// Nom d'archive proposé à l'instant de l'horloge : maroval31-12-2024-09h05.sav.
QString NomSauvegardeParDefaut();

// Filtre des dialogues de choix d'une archive.
QString FiltreSauvegarde();
