#pragma once

namespace tessaly {

class Instrument;

// Start and end of the program: the splash window's preparations and its
// hand-over to the main window, the single-instance check, the shut-down by
// the exit button or by closing the main window, and the farewell window.
class StartUp {
public:
    explicit StartUp(Instrument& app) : app_(app) {}

    // Attaches the handlers of the splash, the farewell window and Command1.
    void wire();

    // The program starts: the splash window loads and, unless that ended the
    // program, is shown.
    void begin();

    void DZQQD_Form_Load();
    void DZQQD_Timer();
    void Command1_Click();
    // The user closes the main window.
    void Form1_Close();
    void Form3_Timer();
    void Form3_Click();

private:
    void shutDown(bool closingWindow);

    Instrument& app_;
};

constexpr const char* kAlreadyRunning = "你已经运行这个应用程序了！";

}  // namespace tessaly
