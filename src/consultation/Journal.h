#pragma once
// Consultation des journaux : les lignes de l'exercice, d'un journal ou de tous, de toute
// l'année ou d'un mois, dans un ordre ou dans l'autre, à l'écran ou vers un fichier CSV.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Journal;
}

namespace ecran {

class Journal : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Journal(QWidget* parent = nullptr);
    ~Journal() override;

    // Fichier vide : remplit la grille ; sinon écrit la même sélection dans ce fichier.
    void AffJournal(const QString& Code, const QString& Fichier, const QString& Separateur);
    QString CodeJournal() const { return code; }

public slots:
    void Form_Activate();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void BRGeneral_Click();
    void BRAchats_Click();
    void BRVentes_Click();
    void BRTresor_Click();
    void BROpDiv_Click();
    void BRInvent_Click();
    void BRCrois_Click();
    void BRDecrois_Click();
    void BRGlobal_Click(bool choisi);
    void BRMensuel_Click(bool choisi);
    void SauverPersonalisations();

protected:
    void showEvent(QShowEvent* evenement) override;
    void done(int resultat) override;

private:
    void ChoisirJournal(const QString& nouveau);

    std::unique_ptr<Ui::Journal> ui;
    QString code = QStringLiteral("*");
    bool personalisationsSauvees = false;
};

// Nom du journal dans le fichier exporté ("Journal Général", "Achats"...).
QString NomExportJournal(const QString& code);

} // namespace ecran
