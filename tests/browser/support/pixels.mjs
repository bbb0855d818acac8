// What the pixels of a canvas say.

// Of the first canvas in `selector`, or of the canvas `selector` itself: its size, the number of its colours, the greatest difference
// between the red, green and blue of a pixel, and a number that changes with any pixel.
export function pixels(page, selector) {
  return page.$eval(`${selector} canvas, canvas:is(${selector})`, (canvas) => {
    const { width, height } = canvas;
    // A copy, because the browser complains about canvases that are read often.
    const copy = new OffscreenCanvas(width, height).getContext('2d', { willReadFrequently: true });
    copy.drawImage(canvas, 0, 0);
    const { data } = copy.getImageData(0, 0, width, height);
    const colours = new Set();
    let tint = 0;
    let sum = 0;
    for (let i = 0; i < data.length; i += 4) {
      colours.add((data[i] << 16) | (data[i + 1] << 8) | data[i + 2]);
      tint = Math.max(tint, Math.max(data[i], data[i + 1], data[i + 2]) - Math.min(data[i], data[i + 1], data[i + 2]));
      sum = (Math.imul(sum, 31) + data[i] + 7 * data[i + 1] + 13 * data[i + 2]) | 0;
    }
    return { width, height, colours: colours.size, tint, sum };
  });
}

// Of every canvas of the page that is shown: where it is, and what `pixels` says of it.
export async function allPixels(page) {
  const marks = await page.$$eval('canvas', (all) =>
    all.filter((canvas) => canvas.clientWidth > 0).map((canvas, i) => (canvas.dataset.test = String(i))),
  );
  const found = [];
  for (const mark of marks) {
    const selector = `[data-test="${mark}"]`;
    const where = await page.$eval(selector, (canvas) => canvas.closest('section')?.id ?? canvas.className);
    found.push({ where, ...(await pixels(page, selector)) });
  }
  return found;
}
