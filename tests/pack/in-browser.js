// Returns what is wrong with the page as it is shown now, a sentence each.
(() => {
  const problems = [];
  const check = (holds, sentence) => { if (!holds) problems.push(sentence); };
  const shown = (element) => element.getClientRects().length > 0;
  const told = (element) => `${element.tagName} "${(element.textContent || "").slice(0, 40)}"`;

  const root = document.documentElement;
  check(root.scrollWidth <= root.clientWidth,
        `the page is ${root.scrollWidth} wide in a window of ${root.clientWidth}`);
  check(root.lang === "en" && document.title !== "", "the page has a language and a title");
  check(document.scripts.length === 0, "there is no script");

  for (const table of document.querySelectorAll(".wide")) {
    const isWhole = table.scrollWidth <= table.clientWidth;
    check(isWhole, `the table "${table.textContent.slice(0, 30)}" is shown whole`);
  }

  for (const image of document.images) {
    check(image.alt.trim() !== "", `the picture ${image.src.slice(0, 40)} has an alternative text`);
    check(image.complete && image.naturalWidth > 0, `the picture "${image.alt}" can be read`);
  }
  for (const svg of document.querySelectorAll("svg")) {
    const names = (svg.getAttribute("aria-labelledby") || "").split(" ");
    const texts = names.map((id) => document.getElementById(id)?.textContent.trim());
    check(svg.getAttribute("role") === "img" && texts.every(Boolean) && texts.length === 2,
          "a drawing has a title and a description");
  }
  const ids = [...document.querySelectorAll("[id]")].map((element) => element.id);
  check(new Set(ids).size === ids.length, "identifiers stand once");
  for (const link of document.querySelectorAll('a[href^="#"]')) {
    check(document.getElementById(link.hash.slice(1)) !== null, `${link.hash} leads somewhere`);
  }
  for (const link of document.querySelectorAll("a, img, link, iframe")) {
    const address = link.getAttribute("href") || link.getAttribute("src") || "";
    check(/^(#|data:)/.test(address), `${address.slice(0, 60)} stays in the page`);
  }
  check(document.querySelectorAll("h1").length === 1, "there is one main heading");
  let last = 0;
  for (const heading of document.querySelectorAll("h1, h2, h3, h4")) {
    const level = Number(heading.tagName[1]);
    check(level <= last + 1, `${told(heading)} follows a heading of level ${last}`);
    last = level;
  }

  // Labels of drawings: apart from each other, within the drawing and not too small to read.
  for (const svg of [...document.querySelectorAll("svg")].filter(shown)) {
    const frame = svg.getBoundingClientRect();
    const labels = [...svg.querySelectorAll("text")].map((text) => [text, text.getBoundingClientRect()]);
    for (const [text, box] of labels) {
      const isInside = box.left >= frame.left - 1 && box.right <= frame.right + 1 &&
                       box.top >= frame.top - 1 && box.bottom <= frame.bottom + 1;
      check(isInside, `${told(text)} lies within its drawing`);
      const size = parseFloat(getComputedStyle(text).fontSize) * svg.getScreenCTM().a;
      check(size >= 9, `${told(text)} is ${size.toFixed(1)} pixels high`);
    }
    labels.forEach(([text, a], i) => {
      for (const [other, b] of labels.slice(i + 1)) {
        const slack = 3;  // a line's box is higher than its letters
        const wide = Math.min(a.right, b.right) - Math.max(a.left, b.left);
        const high = Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top);
        check(wide <= 0.5 || high <= slack, `${told(text)} does not overlap ${told(other)}`);
      }
    });
  }

  // Text against what is behind it, after the web's accessibility guidelines.
  const channels = (colour) => {
    const parts = colour.match(/[\d.]+/g).map(Number);
    return {rgb: parts.slice(0, 3), alpha: parts.length > 3 ? parts[3] : 1};
  };
  const luminance = (rgb) => {
    const [r, g, b] = rgb.map((c) => c / 255).map(
      (c) => (c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4));
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  const contrast = (a, b) => {
    const [high, low] = [luminance(a), luminance(b)].sort((x, y) => y - x);
    return (high + 0.05) / (low + 0.05);
  };
  const behind = (element) => {
    for (let each = element; each; each = each.parentElement) {
      const {rgb, alpha} = channels(getComputedStyle(each).backgroundColor);
      if (alpha === 1) return rgb;
    }
    return [255, 255, 255];
  };
  const behindInDrawing = (text) => {  // the last shape before it that covers its middle
    const box = text.getBoundingClientRect();
    const [x, y] = [(box.left + box.right) / 2, (box.top + box.bottom) / 2];
    let found = behind(text.closest("svg"));
    for (const shape of text.closest("svg").querySelectorAll("rect")) {
      if (!(shape.compareDocumentPosition(text) & Node.DOCUMENT_POSITION_FOLLOWING)) continue;
      if (shape.closest("clipPath")) continue;
      const area = shape.getBoundingClientRect();
      const covers = area.left <= x && area.right >= x && area.top <= y && area.bottom >= y;
      const fill = getComputedStyle(shape).fill;
      if (covers && fill !== "none") found = channels(fill).rgb;
    }
    return found;
  };
  for (const element of [...document.querySelectorAll("body *")].filter(shown)) {
    const isText = [...element.childNodes].some((n) => n.nodeType === Node.TEXT_NODE && n.data.trim());
    if (!isText || element.closest("title, desc, style")) continue;
    const style = getComputedStyle(element);
    const inDrawing = element.closest("svg") !== null;
    const colour = channels(inDrawing ? style.fill : style.color).rgb;
    const ratio = contrast(colour, inDrawing ? behindInDrawing(element) : behind(element));
    check(ratio >= 4.5, `${told(element)} has a contrast of ${ratio.toFixed(2)}`);
  }
  return problems;
})()
