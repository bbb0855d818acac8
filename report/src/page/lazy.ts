// Builds what is far down the page when it comes near, or when the browser has nothing else to do,
// so that the first picture does not wait for it and print still finds it.
type Build = () => Promise<void>;

const waiting = new Map<Element, Build>();
let planned = false;
let ready: Promise<void> | undefined;
const near = new IntersectionObserver(
  (entries) => {
    for (const entry of entries) if (entry.isIntersecting) void start(entry.target);
  },
  { rootMargin: '600px' },
);

// Until it is built, the element has the attribute data-waiting.
export function whenNear(host: HTMLElement, build: Build): void {
  host.dataset.waiting = '';
  waiting.set(host, build);
  void pageReady().then(() => {
    near.observe(host);
    plan();
  });
}

// While the page is put together, everything is near.
function pageReady(): Promise<void> {
  ready ??= new Promise((resolve) => {
    const root = document.documentElement;
    const watch = new MutationObserver(() => {
      if (root.dataset.ready !== 'true') return;
      watch.disconnect();
      resolve();
    });
    if (root.dataset.ready === 'true') resolve();
    else watch.observe(root, { attributeFilter: ['data-ready'] });
  });
  return ready;
}

async function start(host: Element): Promise<void> {
  const build = waiting.get(host);
  if (!build) return;
  waiting.delete(host);
  near.unobserve(host);
  try {
    await build();
  } catch (error) {
    const message = document.createElement('p');
    message.className = 'failure';
    message.textContent = `A part of this page could not be drawn: ${(error as Error).message}`;
    host.replaceChildren(message);
    console.error(error);
  }
  host.removeAttribute('data-waiting');
}

// One at a time, when the page has been seen.
function plan(): void {
  if (planned) return;
  planned = true;
  const idle = window.requestIdleCallback ?? ((act: () => void) => window.setTimeout(act, 200));
  idle(async () => {
    planned = false;
    const [host] = waiting.keys();
    if (!host) return;
    await start(host);
    plan();
  });
}
