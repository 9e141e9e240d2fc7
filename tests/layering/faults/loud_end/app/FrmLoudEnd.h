class FrmLoudEnd : public QDialog {};
