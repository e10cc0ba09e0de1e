// Drives the served phone with a WebDriver client that others wrote: what it takes for a phone is one for its users.
//   node outsideClient.mjs QUOBRAK_PHONE NODE_MODULES
import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {createRequire} from 'node:module';
import {createInterface} from 'node:readline';
import {join} from 'node:path';

const [phoneProgram, modules] = process.argv.slice(2);
const {Builder, By} = createRequire(join(modules, 'here.js'))('selenium-webdriver');

const chain = (value) => new By('class chain', value);
const SHOP = 'com.example.shop';

/** Starts the phone and resolves with it and its address once it listens. */
function startPhone() {
  const phone = spawn(phoneProgram, ['--port', '0', '--clock', 'virtual'], {stdio: ['ignore', 'pipe', 'inherit']});
  const lines = createInterface({input: phone.stdout});
  return new Promise((resolve, reject) => {
    phone.once('exit', (status) => reject(new Error(`quobrakPhone ended with status ${status}`)));
    lines.once('line', (line) => {
      const address = /http:\S+/.exec(line);
      assert.ok(address, `the first line is "${line}"`);
      resolve({phone, address: address[0]});
    });
  });
}

/** Without this setting a session sees its application alone, and no alert of the system. */
async function respectSystemAlerts(address, driver) {
  const session = (await driver.getSession()).getId();
  const reply = await fetch(`${address}/session/${session}/appium/settings`, {
    method: 'POST',
    headers: {'content-type': 'application/json'},
    body: JSON.stringify({settings: {respectSystemAlerts: true}}),
  });
  assert.equal(reply.status, 200);
}

async function drive(driver) {
  const label = async (element) => element.getDomAttribute('label');

  // The shop asks for the location at its start; the alert is there for any client.
  const alert = await driver.switchTo().alert();
  assert.match(await alert.getText(), /to use your location\?/);
  await alert.accept();

  const welcome = await driver.findElement(chain("**/XCUIElementTypeStaticText[`label == 'Welcome'`]"));
  assert.equal(await label(welcome), 'Welcome');
  assert.equal(await welcome.getText(), 'Welcome');

  const search = await driver.findElement(new By('class name', 'XCUIElementTypeSearchField'));
  await search.click();
  await search.sendKeys('lamp 日本');
  assert.equal(await search.getDomAttribute('value'), 'lamp 日本');

  const before = await driver.takeScreenshot();
  assert.equal(Buffer.from(before, 'base64').subarray(1, 4).toString(), 'PNG');
  assert.match(await driver.getPageSource(), /<XCUIElementTypeApplication[^>]*label="Shop"/);

  await driver.findElement(new By('accessibility id', 'browse')).click();
  const lamps = await driver.findElements(chain("**/*[`label == 'Lamp'`]"));
  assert.ok(lamps.length > 0);
  assert.notEqual(await driver.takeScreenshot(), before);

  await assert.rejects(driver.findElement(new By('accessibility id', 'spaceship')), {name: 'NoSuchElementError'});
  await assert.rejects(search.click(), {name: 'StaleElementReferenceError'});
}

const {phone, address} = await startPhone();
try {
  const driver = await new Builder()
    .usingServer(address)
    .withCapabilities({browserName: '', 'appium:bundleId': SHOP})
    .build();
  try {
    await respectSystemAlerts(address, driver);
    await drive(driver);
  } finally {
    await driver.quit();
  }
} finally {
  phone.removeAllListeners('exit');
  phone.kill('SIGTERM');
}
console.log('an outside client drove the served phone: session, alert, find, click, type, screenshot, source');
