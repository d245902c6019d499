// Takes the place of the theme's own script, which Debian ships as a module: browsers load no modules from files.
// The page is light or dark as the system is, until the reader chooses.
(function () {
  const system = window.matchMedia("(prefers-color-scheme: dark)");

  function chosen() {
    try {
      return localStorage.getItem("theme");
    } catch (refused) {
      return null; // as some browsers do for files
    }
  }

  function show(theme) {
    document.body.dataset.theme = theme || (system.matches ? "dark" : "light");
  }

  function turn() {
    const theme = document.body.dataset.theme === "dark" ? "light" : "dark";
    try {
      localStorage.setItem("theme", theme);
    } catch (refused) {
      // The choice holds for this page.
    }
    show(theme);
  }

  show(chosen());
  system.addEventListener("change", function () { show(chosen()); });
  document.documentElement.classList.remove("no-js");
  document.querySelectorAll(".theme-toggle").forEach(function (button) { button.addEventListener("click", turn); });
})();
