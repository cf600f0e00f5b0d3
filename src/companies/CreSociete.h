#pragma once
// Création d'une société avec son premier exercice, modification de ses coordonnées,
// et les deux façons de reprendre une base sauvegardée (nouvelle machine).

#include "ui/EcranModal.h"

#include <QList>
#include <memory>

class QLineEdit;

namespace Ui {
class CreSociete;
}

namespace ecran {

class CreSociete : public ui::EcranModal {
    Q_OBJECT
public:
    explicit CreSociete(QWidget* parent = nullptr);
    ~CreSociete() override;

    // Société à modifier (mode 2), choisie dans l'écran des sociétés.
    void FixerNumSoc(int numSoc);
    // Numéro de la société créée, 0 sinon.
    int NumSocCreee() const { return numSocCreee; }

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();

protected:
    // Fermer la fenêtre vaut "Retour".
    void closeEvent(QCloseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void showEvent(QShowEvent* evenement) override;

private:
    QList<QLineEdit*> OrdreFleches() const;
    void Refuser(const QString& texte, QLineEdit* champ);

    std::unique_ptr<Ui::CreSociete> ui;
    int numSoc = 0;
    int numSocCreee = 0;
    bool charge = false;
};

} // namespace ecran
