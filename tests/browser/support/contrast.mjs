// Contrast of texts with what is behind them, as WCAG 2.2 computes it.

// Of every text that is shown in HTML: its first words, colours and contrast.
export function contrasts(page) {
  return page.evaluate(() => {
    const channels = (text) => {
      const [r, g, b, a = 1] = text.match(/[\d.]+/g).map(Number);
      return { r, g, b, a };
    };
    const luminance = ({ r, g, b }) => {
      const linear = (value) => (value / 255 <= 0.04045 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4);
      return 0.2126 * linear(r) + 0.7152 * linear(g) + 0.0722 * linear(b);
    };
    const ground = (element) => {
      for (let at = element; at; at = at.parentElement) {
        const colour = channels(getComputedStyle(at).backgroundColor);
        if (colour.a === 1) return colour;
      }
      return channels(getComputedStyle(document.documentElement).backgroundColor);
    };
    const found = [];
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
      const element = node.parentElement;
      if (!node.textContent.trim() || /^(SCRIPT|STYLE|NOSCRIPT)$/.test(element.tagName)) continue;
      const style = getComputedStyle(element);
      const box = element.getBoundingClientRect();
      if (box.width < 2 || box.height < 2 || style.visibility === 'hidden') continue;
      const [ink, paper] = [channels(style.color), ground(element)];
      const [a, b] = [luminance(ink), luminance(paper)];
      const contrast = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
      found.push({ text: node.textContent.trim().slice(0, 40), ink: style.color, contrast });
    }
    return found;
  });
}
