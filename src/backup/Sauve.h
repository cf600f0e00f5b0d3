#pragma once
// Sauvegarde d'un exercice sur disquette : trois disquettes qui tournent, l'exercice copié
// dans sauve.mdb, compressé par sauveg.sh dans un autre processus, puis recopié avec son
// étiquette.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Sauve;
}

namespace ecran {

class Sauve : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Sauve(QWidget* parent = nullptr);
    ~Sauve() override;

    // Attente la plus longue de la compression (deux minutes par défaut).
    static void FixerDelaiCompression(int millisecondes);
    int DisqueAttendu() const { return disque; }

public slots:
    void Form_Load();
    void SSCommand1_Click();
    void Command2_Click();

private:
    // La compression par sauveg.sh ; faux si elle n'a pas abouti à temps.
    bool Compresser();
    void Echec(const QString& texte, const QString& titre = QStringLiteral("Maroval"));

    std::unique_ptr<Ui::Sauve> ui;
    int disque = 1;
};

} // namespace ecran
