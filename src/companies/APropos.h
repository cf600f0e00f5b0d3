#pragma once
// A propos de Maroval : la version, et une porte de maintenance (Ctrl+V sur le bouton)
// qui lance la vérification de la comptabilité.

#include "ui/EcranModal.h"

#include <functional>
#include <memory>

namespace Ui {
class APropos;
}

namespace ecran {

class APropos : public ui::EcranModal {
    Q_OBJECT
public:
    explicit APropos(QWidget* parent = nullptr);
    ~APropos() override;

    // Pour les tests : une autre vérification des livres ; une fonction vide rend celle du
    // moteur d'écriture.
    using Verificateur = std::function<bool()>;
    static void FixerVerification(Verificateur verification);

public slots:
    void Form_Load();
    void Command1_Click();
    void Command1_KeyDown(int cle, int modificateurs);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::unique_ptr<Ui::APropos> ui;
};

} // namespace ecran
