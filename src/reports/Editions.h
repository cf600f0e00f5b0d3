#pragma once
// Les états imprimés de l'exercice, en quatre cadres : comptes, balances, journaux,
// résultat et bilan. Chaque bouton fait son état et l'envoie à l'imprimante (par l'aperçu)
// ou dans un fichier PDF.

#include "ui/EcranModal.h"

#include <QString>

namespace Ui {
class Editions;
}

namespace rapport {
struct Document;
}

namespace ecran {

class Editions : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Editions(QWidget* parent = nullptr);
    ~Editions() override;

    // Faux si la base d'extraction n'a pu être faite : l'écran s'est alors fermé.
    bool Pret() const { return pret; }

    void ImprimerBalance(const QString& code);
    void ImprimerGrdLivre(const QString& compte);
    void ImprimerJournal(const QString& code, int mois);
    void ImprimerJourCent();
    void ImprimerResulBilan(const QString& code);
    void ImprimerPlan();

public slots:
    void Form_Load();
    void Command3_Click();
    void Command6_Click();
    void done(int resultat) override;

private:
    void Imprimer(const rapport::Document& document);

    Ui::Editions* ui;
    QString symboleSysteme;
    bool symboleEchange = false;
    bool pret = false;
};

} // namespace ecran
